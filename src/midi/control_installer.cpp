// SPDX-License-Identifier: MIT
#include "midi/control_installer.h"

#include <cstddef>
#include <exception>
#include <vector>

#include "shell/file_access.h"
#include "shell/program_info.h"
#include "shell/runtime_error.h"

namespace quavix {
namespace {

constexpr std::int32_t LookAgainMs = 100;

std::string SystemFolder(const std::string& winFolder) {
    return FileInFolder(winFolder, "system32");
}

}  // namespace

std::string ControlInstaller::DestFile(const std::string& fileName) const {
    return FileInFolder(SystemFolder(p_.WinFolder), fileName);
}

bool ControlInstaller::Exists(const std::string& fileName) {
    return FileExists(fileName, p_.Disk, p_.Log);
}

bool ControlInstaller::CopyFileToSystem32(const std::string& fileName) {
    LogBlock block(p_.Log, "CopyFileToSystem32()", "CopyFileToSystem32({}) - START", fileName);
    const std::string source = FileInFolder(p_.ProgramFolder, fileName);
    p_.Log.Text("SourceFile = {}", source);
    const std::string destination = DestFile(fileName);
    p_.Log.Text("DestFile = {}", destination);
    const bool isInPlace = Exists(destination) || Install(fileName, source, destination);
    if (!isInPlace)
        block.Abandon();
    return isInPlace;
}

bool ControlInstaller::Install(const std::string& fileName, const std::string& source,
                               const std::string& destination) {
    if (!Exists(source)) {
        p_.Log.LogText("SourceFile DOES NOT EXIST!");
        TellMissing(fileName);
        return false;
    }
    // The user's own folder may not exist yet. If this fails, Copy() raises the error.
    p_.Disk.CreateFolder(SystemFolder(p_.WinFolder));
    const std::shared_ptr<Workplace> workplace = TakeWorkplace(destination);
    // Another copy of the program may have installed the control meanwhile.
    if (p_.Disk.FindsNormalFile(destination))
        return true;
    if (p_.State.ShuttingDown)
        return false;
    p_.Log.Text("FileCopy {},{}", source, destination);
    Copy(source, destination);
    Register(workplace->Folder, destination);
    if (p_.State.ShuttingDown)
        return false;
    if (Exists(destination))
        return true;
    p_.Log.LogText("THE SourceFile TO DestFile COPY FAILED!");
    TellFailed(fileName);
    return false;
}

/// Returns the program's folder, or the folder of the controls if the program's is not writable. While
/// another copy of the program holds the lock, waits until the control is there. Without any lock, the later
/// writing reports the error.
std::shared_ptr<ControlInstaller::Workplace> ControlInstaller::TakeWorkplace(const std::string& destination) {
    if (auto current = workplace_.lock())
        return current;
    auto workplace = std::make_shared<Workplace>();
    for (const std::string& folder : {p_.ProgramFolder, SystemFolder(p_.WinFolder)}) {
        std::error_code error;
        while ((workplace->Lock = p_.Disk.TryLock(FileInFolder(folder, "regocx.lock"), error)) == nullptr &&
               error == std::errc::resource_unavailable_try_again && !p_.Disk.FindsNormalFile(destination) &&
               !p_.State.ShuttingDown)
            p_.Wait.MsgWaitObj(LookAgainMs);
        workplace->Folder = folder;
        if (!error || error == std::errc::resource_unavailable_try_again) {
            workplace_ = workplace;
            return workplace;
        }
    }
    workplace->Folder = p_.ProgramFolder;
    return workplace;
}

void ControlInstaller::Copy(const std::string& source, const std::string& destination) {
    RaiseFileError(p_.Disk.CreateFolder(SystemFolder(p_.WinFolder)), SystemFolder(p_.WinFolder));
    std::error_code error;
    const auto reader = p_.Disk.OpenForInput(source, error);
    RaiseFileError(error, source);
    const auto writer = p_.Disk.OpenForOutput(destination, error);
    RaiseFileError(error, destination);
    constexpr std::size_t BlockSize = 65536;
    std::vector<char> block(BlockSize);
    while (const std::size_t size = reader->Read(block, error)) {
        RaiseFileError(error, source);
        RaiseFileError(writer->Write({block.data(), size}), destination);
    }
    RaiseFileError(error, source);
    RaiseFileError(writer->Commit(), destination);
}

void ControlInstaller::Write(const std::string& fileName, const std::string& content) {
    std::error_code error;
    const auto writer = p_.Disk.OpenForOutput(fileName, error);
    RaiseFileError(error, fileName);
    RaiseFileError(writer->Write(content), fileName);
    RaiseFileError(writer->Commit(), fileName);
}

void ControlInstaller::Register(const std::string& folder, const std::string& destination) {
    const std::string marker = FileInFolder(folder, "NOTYETDONE.txt");
    const std::string batch = FileInFolder(folder, "regocx.bat");
    try {
        p_.Log.Text("Creating NotYetDoneFile = {}", marker);
        Write(marker, "");
        p_.Log.Text("Creating BatFile = {}", batch);
        Write(batch, p_.Batches.RegisterCommand() + p_.Batches.Quoted(destination) + "\nerase " +
                         p_.Batches.Quoted(marker) + "\n");
        p_.Log.LogText("Executing BAT file");
        RaiseFileError(p_.Batches.Start(batch), batch);
    } catch (const RuntimeError&) {
        p_.Disk.Delete(batch);
        p_.Disk.Delete(marker);
        throw;
    }
    while (Exists(marker) && !p_.State.ShuttingDown)
        p_.Wait.MsgWaitObj(LookAgainMs);
    p_.Log.LogText("Deleting BAT file");
    p_.Disk.Delete(batch);
}

void ControlInstaller::TellMissing(const std::string& fileName) {
    p_.Boxes.Show(
        {.Title = "Can't see a needed file!",
         .Text = fmt::format("The first time you use this feature with this program, \r\n"
                             "the program needs '{}' to be in the same folder as itself. \r\n"
                             "It will then copy that file to {} so that you don't \r\n"
                             "need to worry about it in the future, on this computer.\r\n\r\n"
                             "However, the file can't be seen in the same folder as this program, \r\n"
                             "and it isn't in system32 yet either.\r\n\r\n"
                             "Please download the \r\n"
                             "latest version of Quavix from \r\n"
                             "{}\r\n"
                             " (URL copied to clipboard), where all needed files should be included in the "
                             "download.",
                             fileName, SystemFolder(p_.WinFolder), program::UpdateAddress),
         .Icon = BoxIcon::Critical});
    p_.TextClipboard.SetText(program::UpdateAddress);
    Untick();
}

void ControlInstaller::TellFailed(const std::string& fileName) {
    p_.Boxes.Show(
        {.Title = "Couldn't copy the file!",
         .Text = fmt::format(
             "The program just tried to copy a needed file, '{0}'\r\n"
             "to {1}. The file is currently in the same folder as this program. \r\n\r\n"
             "The copy failed. Perhaps your Windows installation directory is not {1}.\r\n\r\n"
             "The program needs the OCX file to be in system32, and info about it to be put into the "
             "registry using 'regsvr32'.\r\n\r\n"
             "Please see info.txt (included with this program) for info on how to do this yourself (it's "
             "not too tricky), at the bottom of the section for the MIDI feature which you just tried to "
             "use.\r\n\r\n"
             "Sorry about the trouble.",
             fileName, SystemFolder(p_.WinFolder)),
         .Icon = BoxIcon::Critical});
    Untick();
}

void ControlInstaller::Untick() {
    p_.Mods.UseMIDIFile.Ticked = false;
    p_.Mods.UseMIDIOut.Ticked = false;
    p_.Mods.UseMIDIIn.Ticked = false;
}

bool ControlInstaller::MakeReady(const std::string& fileName, Watched<bool>& check,
                                 const std::function<std::string()>& prepare) {
    const std::int16_t logIndent = p_.Log.LogIndent();
    try {
        if (!CopyFileToSystem32(fileName))
            return false;
    } catch (const std::exception&) {
        p_.Log.SetLogIndent(logIndent);
        check = false;
        throw;
    }
    // The user may have unticked the box meanwhile.
    if (!check || p_.State.ShuttingDown)
        return false;
    const std::string problem = prepare();
    if (problem.empty())
        return true;
    p_.Log.LogText(problem);
    check = false;
    TellUnusable(fileName, problem);
    return false;
}

void ControlInstaller::TellUnusable(const std::string& fileName, const std::string& problem) {
    p_.Boxes.Show(
        {.Title = "Can't use a needed file!",
         .Text = fmt::format("The program needs '{}' for this feature, but can't use it:\r\n\r\n"
                             "{}\r\n\r\n"
                             "Please delete this file:\r\n{}\r\n"
                             "The next time you use the feature, the program copies its own file there "
                             "again. If that doesn't help, please download the latest version of Quavix "
                             "from {}",
                             fileName, problem, DestFile(fileName), program::UpdateAddress),
         .Icon = BoxIcon::Warning});
}

}  // namespace quavix
