// SPDX-License-Identifier: MIT
#pragma once

#include "platform/posix/file_descriptor.h"

namespace quavix {

// Calls that POSIX leaves to each kernel. The folder of the kernel implements them.

/// Names the calling process, in at most 15 characters. Safe in a process just forked.
void NameProcess(const char* name);

/// Closes every descriptor from `first` on. Safe in a process just forked.
bool CloseFrom(int first);

/// Opens a folder, even an unlistable one, for calls relative to it.
FileDescriptor OpenFolder(const char* name);

/// Creates a nameless file in the folder, so that nothing is left of it if the process dies. Returns none if
/// the file system does not support that.
FileDescriptor CreateNameless(const FileDescriptor& folder);

/// Names a file of CreateNameless(). Returns false, with errno set, if the name is taken or impossible.
bool GiveName(const FileDescriptor& file, const FileDescriptor& folder, const char* name);

}  // namespace quavix
