// SPDX-License-Identifier: MIT
#include "platform/posix/kernel_calls.h"

#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/prctl.h>
#include <unistd.h>

#include "platform/common/environment.h"

namespace quavix {
namespace {

/// Folder of a process's own open files, by descriptor.
constexpr const char* OpenFiles = "/proc/self/fd/";

}  // namespace

std::string FileOfProgram() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).string();
}

void NameProcess(const char* name) {
    prctl(PR_SET_NAME, name);
}

bool CloseFrom(int first) {
    return close_range(static_cast<unsigned int>(first), UINT_MAX, 0) == 0;
}

FileDescriptor OpenFolder(const char* name) {
    FileDescriptor opened = FileDescriptor::Open(AT_FDCWD, name, O_RDONLY | O_DIRECTORY);
    // A folder that can be written but not listed will do, except for Sync().
    if (!opened && errno == EACCES)
        opened = FileDescriptor::Open(AT_FDCWD, name, O_PATH | O_DIRECTORY);
    return opened;
}

FileDescriptor CreateNameless(const FileDescriptor& folder) {
    // Not every file system supports nameless files, and without this folder they could not be named.
    if (access(OpenFiles, X_OK) != 0)
        return FileDescriptor();
    return FileDescriptor::Open(folder.Get(), ".", O_WRONLY | O_TMPFILE, ReadWriteForAll);
}

bool GiveName(const FileDescriptor& file, const FileDescriptor& folder, const char* name) {
    const std::string source = OpenFiles + std::to_string(file.Get());
    return linkat(AT_FDCWD, source.c_str(), folder.Get(), name, AT_SYMLINK_FOLLOW) == 0;
}

}  // namespace quavix
