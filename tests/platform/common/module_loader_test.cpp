// SPDX-License-Identifier: MIT
// Modules that are missing or broken are answered with a sentence.
#include "platform/common/module_loader.h"

#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>

#include "modules/midi_file/midi_file_module.h"
#include "platform/common/module_midi_devices.h"
#include "platform/common/module_midi_file_reader.h"
#include "support/temporary_folder.h"

namespace quavix {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

std::string Quoted(const std::string& fileName) {
    return "The file \"" + fileName + "\" ";
}

std::string ProblemOf(const std::string& fileName) {
    ModuleMidiFileReader reader(fileName);
    MidiFileContent content;
    std::string detail;
    EXPECT_EQ(reader.Read("", {}, content, detail), MidiFileResult::NoReader);
    EXPECT_EQ(reader.Prepare(), detail) << "asked for again, it is the same";
    return detail;
}

TEST(ModuleLoader, AMissingFileIsNamed) {
    EXPECT_EQ(ProblemOf("/nowhere/midifl32.ocx"), Quoted("/nowhere/midifl32.ocx") + "is missing.");
    EXPECT_EQ(ProblemOf("libc.so.6"), Quoted("libc.so.6") + "is missing.")
        << "libraries of the system are no modules";
    EXPECT_EQ(ProblemOf(""), Quoted("") + "is missing.");
}

TEST(ModuleLoader, AFileThatIsNoLibrarySaysSo) {
    const test::TemporaryFolder folder;
    const std::string text = folder.File("text.ocx");
    std::ofstream(text) << "not a library";
    EXPECT_THAT(ProblemOf(text), StartsWith(Quoted(text) + "is no module that can be loaded: "));
    const std::string empty = folder.File("empty.ocx");
    std::ofstream{empty};
    EXPECT_THAT(ProblemOf(empty), StartsWith(Quoted(empty) + "is no module that can be loaded: "));
    EXPECT_THAT(ProblemOf(folder.Path()),
                StartsWith(Quoted(folder.Path()) + "is no module that can be loaded: "));
}

TEST(ModuleLoader, ALibraryWithoutTheFunctionsSaysWhichItLacks) {
    EXPECT_EQ(ProblemOf(QUAVIX_BROKEN_SYMBOLS_MODULE),
              Quoted(QUAVIX_BROKEN_SYMBOLS_MODULE) + "lacks the function QuavixMidiFileRead.");
    std::string problem;
    EXPECT_EQ(LoadModule(QUAVIX_MIDI_FILE_MODULE, {"Other", 1, {}}, problem), nullptr);
    EXPECT_EQ(problem, Quoted(QUAVIX_MIDI_FILE_MODULE) + "lacks the function QuavixOtherVersion.");
}

TEST(ModuleLoader, AnotherVersionOfTheInterfaceIsRefused) {
    EXPECT_EQ(ProblemOf(QUAVIX_BROKEN_VERSION_MODULE),
              Quoted(QUAVIX_BROKEN_VERSION_MODULE) +
                  "has version 2 of its interface, but the program needs version 1.");
}

TEST(ModuleLoader, AModuleThatDoesNotStartSaysSo) {
    EXPECT_EQ(ProblemOf(QUAVIX_BROKEN_INIT_MODULE),
              Quoted(QUAVIX_BROKEN_INIT_MODULE) + "could not be started (result 7).");
}

TEST(ModuleLoader, ABetterFileInTheSamePlaceIsLoadedWithoutANewStart) {
    const test::TemporaryFolder folder;
    const std::string file = folder.File("midifl32.ocx");
    ModuleMidiFileReader reader(file);
    EXPECT_THAT(reader.Prepare(), HasSubstr("is missing"));
    std::filesystem::copy_file(QUAVIX_BROKEN_VERSION_MODULE, file);
    EXPECT_THAT(reader.Prepare(), HasSubstr("has version 2"));
    std::filesystem::remove(file);
    std::filesystem::copy_file(QUAVIX_MIDI_FILE_MODULE, file);
    EXPECT_EQ(reader.Prepare(), "");
}

TEST(ModuleLoader, AnInstallerFindsTheRegistrationOfAModule) {
    std::string problem;
    const auto module = LoadModule(QUAVIX_MIDI_FILE_MODULE, {"MidiFile", 1, {"DllRegisterServer"}}, problem);
    ASSERT_NE(module, nullptr) << problem;
    EXPECT_EQ(module->Function<decltype(DllRegisterServer)>("DllRegisterServer")(), 0);
}

class NoWatch : public HandleWatch {
  public:
    Id Watch(WaitHandle, std::function<void()>) override { return ++watches; }
    void Unwatch(Id) override { --watches; }

    Id watches = 0;
};

TEST(ModuleLoader, WithoutTheModuleTheMidiDeviceListIsEmptyAndTheReasonIsGiven) {
    NoWatch watch;
    for (const std::string file :
         {"/nowhere/midiio32.ocx", QUAVIX_BROKEN_SYMBOLS_MODULE, QUAVIX_BROKEN_VERSION_MODULE,
          QUAVIX_BROKEN_INIT_MODULE, QUAVIX_MIDI_FILE_MODULE}) {
        ModuleMidiDevices devices(file, watch);
        EXPECT_EQ(devices.Out().DeviceCount(), 0);
        EXPECT_THAT(devices.Out().Problem(), StartsWith(Quoted(file))) << "before it is asked why";
        EXPECT_EQ(devices.In().Prepare(), devices.Out().Problem());
        EXPECT_EQ(devices.Out().DeviceName(MidiOutPort::VirtualDevice), "");
        EXPECT_FALSE(devices.Out().Open(MidiOutPort::VirtualDevice));
        EXPECT_EQ(devices.Out().Send({0x90, 60, 96}), MidiSendResult::NotOpen);
        EXPECT_EQ(devices.Out().SystemName(), "");
        devices.Out().Close();
        MidiMessage message;
        EXPECT_EQ(devices.In().Receive(message), MidiInPort::Received::None);
        EXPECT_EQ(devices.In().State(), MidiDeviceState::Closed);
        devices.In().SetHandler([] {});
        EXPECT_EQ(watch.watches, 1);
    }
    EXPECT_EQ(watch.watches, 0);
}

}  // namespace
}  // namespace quavix
