// SPDX-License-Identifier: MIT
#include "platform/posix/shell_batch_files.h"

#include <csignal>
#include <spawn.h>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/common/environment.h"
#include "platform/common/system_ports.h"
#include "platform/posix/file_descriptor.h"

namespace quavix {
namespace {

// Runs in the background, so that the first shell ends at once and the second is no child of the program. The
// file is opened by the first shell, so its name may change afterwards.
constexpr const char* Script =
    "erase() { rm -f -- \"$1\"; }; "
    "exec </dev/null >/dev/null 2>&1 3<\"$0\" || exit 1; "
    "{ . /dev/fd/3; } &";

}  // namespace

std::unique_ptr<BatchFiles> MakeBatchFiles() {
    return std::make_unique<ShellBatchFiles>(FileOfProgram());
}

std::string ShellBatchFiles::RegisterCommand() {
    return Quoted(program_) + " --register ";
}

std::string ShellBatchFiles::Quoted(const std::string& fileName) {
    constexpr std::string_view Special = "\"\\$`";
    std::string quoted = "\"";
    for (const char c : fileName) {
        if (Special.find(c) != std::string_view::npos)
            quoted += '\\';
        quoted += c;
    }
    return quoted + '"';
}

std::error_code ShellBatchFiles::Start(const std::string& fileName) {
    // The program blocks some signals; children must not inherit that.
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
    std::string shell = "/bin/sh";
    std::string option = "-c";
    std::string script = Script;
    std::string file = fileName;
    char* const arguments[] = {shell.data(), option.data(), script.data(), file.data(), nullptr};
    pid_t child = 0;
    const int error = posix_spawn(&child, shell.c_str(), nullptr, &attributes, arguments, environ);
    posix_spawnattr_destroy(&attributes);
    if (error != 0)
        return {error, std::generic_category()};
    int status = 0;
    if (Uninterrupted([&] { return waitpid(child, &status, 0); }) < 0)
        return {};  // other code has waited for all children
    return WIFEXITED(status) && WEXITSTATUS(status) == 0
               ? std::error_code()
               : std::make_error_code(std::errc::no_such_file_or_directory);
}

}  // namespace quavix
