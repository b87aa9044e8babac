// SPDX-License-Identifier: MIT
// Controls that are in place but can't be used: the user is told, and nothing else breaks.
#include <fstream>

#include <gmock/gmock.h>

#include "midi/midi_output.h"
#include "platform/common/module_loader.h"
#include "platform/common/module_midi_devices.h"
#include "support/simulated_program.h"
#include "support/temporary_folder.h"

namespace quavix {
namespace {

using testing::HasSubstr;

class NoHandles : public HandleWatch {
  public:
    Id Watch(WaitHandle, std::function<void()>) override { return 1; }
    void Unwatch(Id) override {}
};

/// Ticks "Use MIDI output" with this file as the control, and returns the message.
std::string MessageAbout(const std::string& module) {
    test::SimulatedProgram p;
    p.Disk.Put("/windows/system32/midiio32.ocx", "as far as the installer can see");
    MainFields fields;
    NoHandles handles;
    ModuleMidiDevices devices(module, handles);
    ControlInstaller controls({fields.Mods, fields.State, p.Disk, p.Batches, p.Clipboard, p.Boxes, p.App.Wait,
                               p.App.Log, "/program", "/windows"});
    MidiOutput output(
        {fields.Mods, fields.State, devices.Out(), controls, p.App.Wait, p.Boxes, p.App.Handlers, p.App.Log});
    for (int time = 1; time <= 2; ++time) {
        fields.Mods.UseMIDIOut.Ticked = true;
        EXPECT_FALSE(fields.Mods.UseMIDIOut.Ticked);
        EXPECT_TRUE(fields.Mods.UseMIDIOut.Enabled) << "it may be put right";
        EXPECT_FALSE(fields.Mods.UseMIDIOut.InUse);
        EXPECT_FALSE(output.Fields.MIDIOutFormVisible);
        EXPECT_EQ(p.Boxes.Shown().size(), static_cast<std::size_t>(time));
    }
    output.MIDINoteOn(60);
    output.MIDINoteOff(60, -1);
    return p.Boxes.Shown().front().Text;
}

TEST(BrokenControl, IsNamedWithItsFaultWhenItsBoxIsTicked) {
    const test::TemporaryFolder folder;
    const std::string text = folder.File("text.ocx");
    std::ofstream(text) << "not a library";
    EXPECT_THAT(MessageAbout(text), HasSubstr("The file \"" + text + "\" is no module that can be loaded"));
    EXPECT_THAT(MessageAbout(QUAVIX_BROKEN_SYMBOLS_MODULE), HasSubstr("lacks the function QuavixMidiIo"));
    EXPECT_THAT(MessageAbout(QUAVIX_BROKEN_VERSION_MODULE), HasSubstr("has version 2 of its interface"));
    EXPECT_THAT(MessageAbout(QUAVIX_MIDI_FILE_MODULE), HasSubstr("lacks the function QuavixMidiIo"))
        << "the other control under this one's name";
    EXPECT_THAT(MessageAbout(text),
                HasSubstr("Please delete this file:\r\n/windows/system32/midiio32.ocx\r\n"));
}

TEST(RegisterControl, AsksAControlOnceWhetherItCanBeUsed) {
    std::string problem;
    EXPECT_TRUE(RegisterControl(QUAVIX_MIDI_FILE_MODULE, problem)) << problem;
    EXPECT_EQ(problem, "");
}

TEST(RegisterControl, TheReasonWhyAFileIsNoControlIsGiven) {
    const test::TemporaryFolder folder;
    std::string problem;
    EXPECT_FALSE(RegisterControl(folder.File("missing.ocx"), problem));
    EXPECT_THAT(problem, HasSubstr("missing.ocx"));
    EXPECT_FALSE(RegisterControl(QUAVIX_BROKEN_SYMBOLS_MODULE, problem));
    EXPECT_THAT(problem, HasSubstr("lacks the function DllRegisterServer."));
}

}  // namespace
}  // namespace quavix
