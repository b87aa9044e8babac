// SPDX-License-Identifier: MIT
#pragma once

#include "platform/posix/file_descriptor.h"

namespace quavix {

// Calls that POSIX leaves to each kernel. The folder of the kernel implements them.

/// Names the calling process, in 15 characters at most. Safe in a process just forked.
void NameProcess(const char* name);

/// Closes every descriptor from `first` on. Safe in a process just forked.
bool CloseFrom(int first);

/// Opens a folder for calls that are relative to it; also one that may be written but not listed.
FileDescriptor OpenFolder(const char* name);

/// A new file in the folder that has no name yet, so that nothing is left of it when the process dies; none,
/// where there are no such files.
FileDescriptor CreateNameless(const FileDescriptor& folder);

/// Names a file that CreateNameless() has made. False, with errno set, if the name is taken or can't be had.
bool GiveName(const FileDescriptor& file, const FileDescriptor& folder, const char* name);

}  // namespace quavix
