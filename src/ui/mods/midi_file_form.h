// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "midi/midi_file_playback.h"
#include "music/main_fields.h"
#include "shell/event_boundary.h"
#include "ui/mods/mod_window.h"

namespace quavix {

namespace Ui {
class MIDIFileForm;
}

/// The window of MIDI file playback: the file, the playback controls, and the held notes.
class MIDIFileForm : public ModWindow {
    Q_OBJECT

  public:
    explicit MIDIFileForm(ModFields& mods, MidiFilePlayback& midiFile, EventBoundary& handlers,
                          QWidget* owner = nullptr);
    ~MIDIFileForm() override;

  private:
    void BindSlider();

    MidiFilePlayback& playback_;
    EventBoundary& handlers_;
    std::unique_ptr<Ui::MIDIFileForm> ui_;
};

}  // namespace quavix
