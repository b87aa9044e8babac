// SPDX-License-Identifier: MIT
#include "fmod/sound_mods.h"

#include "shell/file_access.h"
#include "shell/program_info.h"

namespace quavix {
namespace {

constexpr const char* LibraryFile = "FMODex.dll";

}  // namespace

SoundMods::SoundMods(const SoundModsParts& parts)
    : Errors(parts.Boxes, parts.Log),
      Engine(parts.Library, Errors, parts.Log),
      Generator(
          {parts.Mods, parts.Output, Engine, parts.Library, Errors, parts.Wait, parts.Log, parts.SendString}),
      UseFmod(parts.Song, parts.Mods, parts.Output, Generator, parts.Handlers),
      Singer({parts.Library, Errors, parts.Ticks, parts.Random, parts.Handlers, parts.Log}),
      UseVoice(parts.Mods, parts.Output, Singer, Errors, parts.Handlers),
      p_(parts) {}

void SoundMods::CheckAvailability(const std::string& programFolder) {
    const std::string file = FileInFolder(programFolder, LibraryFile);
    bool available = FileExists(file, p_.Disk, p_.Log);
    if (available) {
        const std::string reason = p_.Library.Load(file);
        if (!reason.empty()) {
            available = false;
            whyNot_ = fmt::format("'fmodex.dll' can't be loaded: {}", reason);
            p_.Boxes.Show({
                .Title = program::Title,
                .Text = fmt::format("FMODex.dll can't be loaded:\n{}.\n\n"
                                    "The program goes on without FMOD and without the voice.",
                                    reason),
                .Icon = BoxIcon::Warning,
            });
        }
    }
    FmodAvailable = available;
    p_.Mods.UseFMOD.Enabled = available;
    p_.Mods.UseVoice.Enabled = available;
}

void SoundMods::StartEngine(const FmodOutput& output) {
    if (!FmodAvailable) {
        p_.Log.Text("FMOD can NOT be used ({})", whyNot_);
        return;
    }
    p_.Log.LogText("FMOD can be used ('fmodex.dll' seen)");
    Engine.Start(output);
    Generator.ChangeDSPType(SOUND_SQUARE);
}

}  // namespace quavix
