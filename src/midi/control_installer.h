// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "music/main_fields.h"
#include "ports/batch_files.h"
#include "ports/clipboard.h"
#include "ports/files.h"
#include "ports/message_boxes.h"
#include "shell/debug_log.h"
#include "shell/waiting.h"

namespace quavix {

/// Dependencies of ControlInstaller. All must outlive it.
struct ControlInstallerParts {
    ModFields& Mods;
    const ProgramState& State;
    Files& Disk;
    BatchFiles& Batches;
    Clipboard& TextClipboard;
    MessageBoxes& Boxes;
    Waiting& Wait;
    DebugLog& Log;
    /// The folder of the program and of the controls that it ships with.
    std::string ProgramFolder;
    /// The controls are put into "system32" in this folder.
    std::string WinFolder;
};

/// Puts the control files that the MIDI features rest on in place when such a feature is first used: copies
/// one from beside the program and registers it by a batch file.
class ControlInstaller {
  public:
    static constexpr const char* MidiDevicesControl = "midiio32.ocx";
    static constexpr const char* MidiFilesControl = "midifl32.ocx";

    explicit ControlInstaller(ControlInstallerParts parts) : p_(std::move(parts)) {}
    ControlInstaller(const ControlInstaller&) = delete;
    ControlInstaller& operator=(const ControlInstaller&) = delete;

    /// Puts a control in place; true where it is, be it from earlier. Otherwise a message has been shown and
    /// all MIDI boxes are unticked. While the control registers itself handlers run; the wait has no end but
    /// the batch file's, or the program's. A file that can't be copied or written raises the classic error.
    bool CopyFileToSystem32(const std::string& fileName);

    /// The same for the feature behind `check`, which must still be ticked then, and whose control must work:
    /// `prepare` loads it and answers with a sentence why that is impossible, or an empty text. Otherwise
    /// that is shown and the box unticked. False also where an error is raised, which goes on to the caller
    /// with the box unticked.
    bool MakeReady(const std::string& fileName, Watched<bool>& check,
                   const std::function<std::string()>& prepare);

  private:
    /// The folder for the marker and the batch file, which no other copy of the program uses meanwhile.
    struct Workplace {
        std::string Folder;
        std::unique_ptr<FileLock> Lock;
    };

    std::string DestFile(const std::string& fileName) const;
    bool Exists(const std::string& fileName);
    bool Install(const std::string& fileName, const std::string& source, const std::string& destination);
    std::shared_ptr<Workplace> TakeWorkplace(const std::string& destination);
    void Copy(const std::string& source, const std::string& destination);
    void Write(const std::string& fileName, const std::string& content);
    void Register(const std::string& folder, const std::string& destination);
    void Untick();
    void TellUnusable(const std::string& fileName, const std::string& problem);
    void TellMissing(const std::string& fileName);
    void TellFailed(const std::string& fileName);

    ControlInstallerParts p_;
    /// That of the installation under way: while it waits, the user may tick the next box.
    std::weak_ptr<Workplace> workplace_;
};

}  // namespace quavix
