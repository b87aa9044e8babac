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

/// The folder in which a process finds its own open files, by their numbers.
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
    // A folder that may be written but not listed is as good, but for making it durable.
    if (!opened && errno == EACCES)
        opened = FileDescriptor::Open(AT_FDCWD, name, O_PATH | O_DIRECTORY);
    return opened;
}

FileDescriptor CreateNameless(const FileDescriptor& folder) {
    // Not every file system has files without a name, and none gets one without this folder.
    if (access(OpenFiles, X_OK) != 0)
        return FileDescriptor();
    return FileDescriptor::Open(folder.Get(), ".", O_WRONLY | O_TMPFILE, ReadWriteForAll);
}

bool GiveName(const FileDescriptor& file, const FileDescriptor& folder, const char* name) {
    const std::string source = OpenFiles + std::to_string(file.Get());
    return linkat(AT_FDCWD, source.c_str(), folder.Get(), name, AT_SYMLINK_FOLLOW) == 0;
}

}  // namespace quavix
