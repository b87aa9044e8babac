// SPDX-License-Identifier: MIT
// A MIDI file from the command line to what is heard, with the control file installed on the way.
#include <algorithm>
#include <cmath>

#include <QFile>
#include <gtest/gtest.h>

#include "quavix_window.h"
#include "support/measure.h"
#include "support/wav_sound.h"

namespace quavix::test {
namespace {

constexpr const char* Window = "MIDI File Playback Settings";

TEST(MidiFileJourney, AFileNamedAtTheStartIsOpenedPlayedAndHeard) {
    const DesktopSession session;
    QuavixProcess process(session.Environment());
    process.Environment.insert("QUAVIX_SPEAKER", "wav:" + process.File("heard.wav"));
    process.Environment.insert("windir", process.File("windows"));
    ASSERT_TRUE(QFile::copy(QUAVIX_MIDI_FILE_MODULE, process.File("midifl32.ocx")));
    // Note 69, four seconds long.
    process.Put("tune.mid", QByteArray::fromHex("4D546864 00000006 0000 0001 01F4"
                                                "4D54726B 0000000D 00904560 9F20804500 00FF2F00"));
    process.Start({process.File("tune.mid")});
    QuavixWindow window(session, process);
    const Accessible play = window.Find("push button", "Play", Window);
    EXPECT_TRUE(QFile::exists(process.File("windows/system32/midifl32.ocx")));
    EXPECT_TRUE(window.WaitUntil([&] { return play.Has(AccessibleState::Enabled); }));
    // It would set the alternate time, which the song then wants to be saved with.
    window
        .Find("check box",
              "Try to make each cycle last 30 mS (with max alternating time capped to 15mS per note)", Window)
        .Do("Toggle");
    play.Do("Press");
    EXPECT_TRUE(window.WaitUntil([&] {
        const auto sound = ReadWavFile(process.File("heard.wav").toStdString());
        if (!sound)
            return false;
        const auto tones = FindTones(sound->Samples, sound->SampleRate);
        constexpr std::ptrdiff_t Pulses = 10;
        constexpr double A5Hz = 880;
        return std::ranges::count_if(tones, [](const Tone& tone) {
                   return std::abs(Cents(tone.FrequencyHz, A5Hz)) < 20;
               }) >= Pulses;
    }));
    window.Press("Stop", Window);
    window.Choose("Quit");
    EXPECT_EQ(process.ExitCode(), 0);
}

}  // namespace
}  // namespace quavix::test
