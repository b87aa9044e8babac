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
    /// Folder of the program and of the controls shipped with it.
    std::string ProgramFolder;
    /// Parent of the folder "system32", into which controls are copied.
    std::string WinFolder;
};

/// Installs the control files of the MIDI features when such a feature is first used: copies a file from the
/// program's folder and registers it by a batch file.
class ControlInstaller {
  public:
    static constexpr const char* MidiDevicesControl = "midiio32.ocx";
    static constexpr const char* MidiFilesControl = "midifl32.ocx";

    explicit ControlInstaller(ControlInstallerParts parts) : p_(std::move(parts)) {}
    ControlInstaller(const ControlInstaller&) = delete;
    ControlInstaller& operator=(const ControlInstaller&) = delete;

    /// Installs a control. Returns true if it is in place, even from earlier. Otherwise a message has been
    /// shown and all MIDI boxes are unticked. Handlers run while the control registers itself; the wait ends
    /// only with the batch file or the program. If a file can't be copied or written, raises the classic
    /// error.
    bool CopyFileToSystem32(const std::string& fileName);

    /// Installs and loads the control of the feature behind `check`, which must still be ticked afterwards.
    /// `prepare` loads it and returns an empty text, or the reason as a sentence if that is impossible. On
    /// failure shows the reason, unticks the box and returns false. If an error is raised, unticks the box
    /// and passes the error on.
    bool MakeReady(const std::string& fileName, Watched<bool>& check,
                   const std::function<std::string()>& prepare);

  private:
    /// Folder for the marker and the batch file, locked against other copies of the program.
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
    /// The place of the running installation: while it waits, the user may tick another box.
    std::weak_ptr<Workplace> workplace_;
};

}  // namespace quavix
