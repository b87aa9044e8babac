// SPDX-License-Identifier: MIT
// Keys held on a MIDI device, from the tick of the box to the sound of the speaker, in the real program.
#include <algorithm>
#include <csignal>
#include <optional>
#include <string>

#include <QDir>
#include <gtest/gtest.h>

#include "heard_sound.h"
#include "process/jack_midi_peer.h"
#include "process/jack_server.h"
#include "quavix_window.h"
#include "support/measure.h"
#include "support/wav_sound.h"

namespace quavix::test {
namespace {

constexpr const char* Settings = "Live MIDI Input Settings";

class MidiInputJourney : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(server_.Start());
        keyboard_.emplace("keyboard");
        QFile::copy(QUAVIX_MIDI_IO_MODULE, process_.File("midiio32.ocx"));
        process_.Environment.insert("windir", process_.File("windows"));
        process_.Environment.insert("QUAVIX_SPEAKER", "wav:" + process_.File("heard.wav"));
        process_.Start({});
    }

    void Toggle(const QString& check) { window_.Find("check box", check).Do("Toggle"); }

    /// The notes that were heard so far, in their order, "C5 E5 ".
    std::string Heard() const {
        std::string notes;
        const auto sound = ReadWavFile(process_.File("heard.wav").toStdString());
        if (!sound)
            return notes;
        for (const Tone& tone : FindTones(sound->Samples, sound->SampleRate))
            notes += NoteName(tone.FrequencyHz) + " ";
        return notes;
    }

    bool Hears(const std::string& notes) {
        return window_.WaitUntil([&] { return Heard().find(notes) != std::string::npos; });
    }

    /// Waits until the window has all these texts. Asks rarely: while the speaker sounds, the program answers
    /// only once in a pulse.
    bool Reads(const QStringList& readings) {
        return window_.WaitUntil([&] {
            QStringList names;
            for (const Accessible& control : window_.Everything(Settings))
                names += control.Name();
            return std::all_of(readings.begin(), readings.end(),
                               [&](const QString& reading) { return names.contains(reading); });
        });
    }

    JackServer server_;
    std::optional<JackMidiPeer> keyboard_;
    DesktopSession session_;
    QuavixProcess process_{session_.Environment()};
    QuavixWindow window_{session_, process_};
};

TEST_F(MidiInputJourney, AChordIsHeardInTurnUntilItIsReleasedAndAgainAfterTheDeviceWasAway) {
    Toggle("Use MIDI input");
    ASSERT_TRUE(Reads({"State: The device is open (JACK)."}));
    EXPECT_TRUE(QFile::exists(process_.File("windows/system32/midiio32.ocx"))) << "put in place by itself";
    EXPECT_FALSE(window_.Find("check box", "Play a MIDI file").Has(AccessibleState::Enabled));

    keyboard_->Send({{0x90, 60, 80}, {0xF8}, {0x90, 64, 80}, {0xFE}, {0xF0, 0x7E, 0xF7}, {67, 80}});
    EXPECT_TRUE(Hears("C5 E5 G5 C5 E5 G5 C5 E5 G5 ")) << Heard();
    EXPECT_TRUE(Reads({"Number of held notes:  (3)", "C5", "E5", "G5"}));
    keyboard_->Send({{0x80, 64, 0}, {0x90, 60, 0}});
    EXPECT_TRUE(Hears("G5 G5 G5 ")) << Heard();

    keyboard_.reset();
    EXPECT_TRUE(window_.Answer("Can't use MIDI in", "OK").contains("\"keyboard:out\" is gone."));
    EXPECT_TRUE(Reads({"Number of held notes:  (0)"}));
    const std::string before = Heard();
    keyboard_.emplace("keyboard");
    Toggle("Use MIDI input");
    ASSERT_TRUE(window_.WaitUntil([&] { return !window_.HasWindow(Settings); }));
    Toggle("Use MIDI input");
    ASSERT_TRUE(Reads({"State: The device is open (JACK)."}));
    EXPECT_EQ(Heard(), before) << "nothing hangs";
    keyboard_->Send({{0x9F, 57, 1}});
    EXPECT_TRUE(Hears("A4 A4 A4 ")) << Heard();

    kill(static_cast<pid_t>(process_.Id()), SIGTERM);
    EXPECT_EQ(process_.ExitCode(), 0) << "with a key held down";
}

}  // namespace
}  // namespace quavix::test
