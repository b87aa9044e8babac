// SPDX-License-Identifier: MIT
// A JACK server that dies under the program that really runs, while that plays over MIDI and on the sound
// card.
#include <csignal>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include <QFile>
#include <gtest/gtest.h>

#include "process/jack_midi_peer.h"
#include "process/jack_server.h"
#include "quavix_window.h"

namespace quavix::test {
namespace {

class MidiServerJourney : public testing::Test {
  protected:
    static constexpr const char* DeviceIsOpen = "State: The device is open (JACK).";

    void SetUp() override {
        ASSERT_TRUE(server_.Start());
        other_ = std::make_unique<JackMidiPeer>("other");
        process_.Put("song.QVX",
                     "Quavix by Dastrel-204 file format\r\nBPM 240\r\nMUSICLISTSTART\r\n1/16 C4 - -\r\n1/16 "
                     "E4 - -\r\n");
        QFile::copy(QUAVIX_MIDI_IO_MODULE, process_.File("midiio32.ocx"));
        process_.Environment.insert("windir", process_.File("windows"));
        process_.Environment.insert("QUAVIX_SPEAKER", "soundcard");
        process_.Environment.insert("PULSE_SERVER", "unix:/nowhere/at/all");
        process_.Start({process_.File("song.QVX")});
        speaker_.emplace(window_.FindReading("Speaker"));
        output_.emplace(window_.Find("check box", "Use MIDI output"));
        input_.emplace(window_.Find("check box", "Use MIDI input"));
    }

    void TearDown() override {
        if (HasFatalFailure())
            return;
        kill(static_cast<pid_t>(process_.Id()), SIGTERM);
        EXPECT_EQ(process_.ExitCode(), 0);
        // A server waits long for clients that end without leaving it.
        KillServer();
    }

    void Tick(const Accessible& box, bool ticked = true) {
        ASSERT_NE(box.Has(AccessibleState::Checked), ticked);
        box.Do("Toggle");
        ASSERT_TRUE(window_.WaitUntil([&] { return box.Has(AccessibleState::Checked) == ticked; }));
    }

    void OpenOutput() {
        ASSERT_NO_FATAL_FAILURE(Tick(*output_));
        ASSERT_NO_THROW(window_.Find("label", DeviceIsOpen, "MIDI Output Settings"));
        ASSERT_TRUE(other_->Listen("Quavix:Quavix"));
    }

    void OpenInput() {
        ASSERT_NO_FATAL_FAILURE(Tick(*input_));
        ASSERT_NO_THROW(window_.Find("label", DeviceIsOpen, "Live MIDI Input Settings"));
    }

    /// Expects that more notes arrive.
    void ExpectNotes() {
        constexpr std::size_t Some = 8;
        const std::size_t before = other_->Received(1).size();
        EXPECT_GE(other_->Received(before + Some).size(), before + Some);
    }

    bool SpeakerReads(const QString& status) {
        return window_.WaitUntil([&] { return speaker_->Name().contains(status); });
    }

    void KillServer() {
        server_.Kill();
        KeepUntilExit(std::move(other_));
    }

    void StartServer() {
        ASSERT_TRUE(server_.Start());
        other_ = std::make_unique<JackMidiPeer>("other");
    }

    /// Kills the server while music plays to its MIDI output, and has the notes on the next server.
    void ReplaceServer() {
        KillServer();
        EXPECT_TRUE(window_.Answer("Can't use MIDI out", "OK").contains("The MIDI output device is gone."));
        EXPECT_TRUE(SpeakerReads("could not be opened"));
        ASSERT_NO_FATAL_FAILURE(StartServer());
        EXPECT_TRUE(SpeakerReads("sound card (J"));
        ASSERT_NO_FATAL_FAILURE(OpenOutput());
        ExpectNotes();
    }

    JackServer server_;
    std::unique_ptr<JackMidiPeer> other_;
    DesktopSession session_;
    QuavixProcess process_{session_.Environment()};
    QuavixWindow window_{session_, process_};
    // Found before the music plays: then the program answers only once in a pulse of the speaker.
    std::optional<Accessible> speaker_;
    std::optional<Accessible> output_;
    std::optional<Accessible> input_;
};

TEST_F(MidiServerJourney, PlayingGoesOnWithoutTheOutputAndOverANewServer) {
    ASSERT_NO_FATAL_FAILURE(OpenOutput());
    window_.Press("Play all");
    ExpectNotes();
    ReplaceServer();
}

TEST_F(MidiServerJourney, AServerThatStoppedFirstIsLostLikeAnyOther) {
    ASSERT_NO_FATAL_FAILURE(OpenOutput());
    window_.Press("Play all");
    ExpectNotes();
    server_.Stop();
    EXPECT_TRUE(SpeakerReads("not opened yet")) << "the stream is given up, and opening another one hangs";
    ReplaceServer();
}

TEST_F(MidiServerJourney, AnInputIsClosedAndOpenedAgain) {
    ASSERT_NO_FATAL_FAILURE(OpenInput());
    KillServer();
    EXPECT_TRUE(window_.Answer("Can't use MIDI in", "OK").contains("\"other:out\" is gone."));
    const Accessible stop = window_.Find("push button", "Stop playing");
    window_.Press("Play all");
    EXPECT_TRUE(SpeakerReads("could not be opened"));
    stop.Do("Press");
    ASSERT_NO_FATAL_FAILURE(Tick(*input_, false));
    ASSERT_NO_FATAL_FAILURE(StartServer());
    ASSERT_NO_FATAL_FAILURE(OpenInput());
}

}  // namespace
}  // namespace quavix::test
