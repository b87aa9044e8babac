// SPDX-License-Identifier: MIT
#include "songfile/song_document.h"

#include <optional>
#include <utility>

#include "shell/program_info.h"
#include "shell/scoped.h"

namespace quavix {

SongDocument::SongDocument(SongDocumentParts parts) : p_(std::move(parts)) {
    // Once the first setting is replaced, it is no longer the old file's song, even if loading fails.
    p_.Reader.OnReplace = [this] {
        p_.State.MusicIsPlaying = false;
        fileName_ = std::string();
    };
}

bool SongDocument::New() {
    if (!MayClose())
        return false;
    p_.State.MusicIsPlaying = false;
    p_.List.Clear();
    SongFields& song = p_.Song;
    for (Setting* setting : {&song.BPM, &song.BeatsPerBar, &song.NoteSilenceRatio, &song.AlternateTime})
        setting->Reset();
    fileName_ = std::string();
    p_.History.MarkSaved();
    p_.SongReplaced();
    return true;
}

bool SongDocument::Save() {
    const std::string name = fileName_;
    if (name.empty())
        return SaveAs();
    if (!p_.Writer.SaveAs(name))
        return false;
    p_.History.MarkSaved();
    return true;
}

bool SongDocument::SaveAs() {
    const std::optional<std::string> name = p_.Writer.SaveMusic();
    if (!name)
        return false;
    fileName_ = p_.Disk.FullName(*name);
    p_.History.MarkSaved();
    return true;
}

bool SongDocument::Load() {
    const ScopedFlag loading(loading_);
    return Take(p_.Reader.LoadMusic());
}

bool SongDocument::LoadFile(const std::string& fileName) {
    const ScopedFlag loading(loading_);
    return Take(p_.Reader.ActuallyLoadMusic(fileName));
}

bool SongDocument::Take(const LoadResult& loaded) {
    if (!loaded)
        return false;
    // The full name, so that a later save does not depend on the program's start folder.
    fileName_ = loaded.Whole ? p_.Disk.FullName(loaded.FileName) : std::string();
    p_.History.MarkSaved();
    p_.SongReplaced();
    return true;
}

LoadResult SongDocument::Recover(const std::string& copy, const std::string& fileName) {
    const ScopedFlag loading(loading_);
    LoadResult loaded = p_.Reader.ActuallyLoadMusic(copy);
    if (loaded) {
        fileName_ = loaded.Whole ? fileName : std::string();
        p_.History.MarkUnsaved();
        p_.SongReplaced();
    }
    return loaded;
}

bool SongDocument::MayClose() {
    if (asking_)
        return false;
    if (!p_.History.Modified)
        return true;
    const ScopedFlag asking(asking_);
    const std::string& name = fileName_;
    const BoxAnswer answer =
        p_.Boxes.Show({.Title = program::Title,
                       .Text = (name.empty() ? "This song hasn't been saved yet."
                                             : "This song has changes that haven't been saved:\n" + name) +
                               "\n\nSave it now?",
                       .Icon = BoxIcon::Warning,
                       .Buttons = BoxButtons::YesNoCancel});
    if (answer == BoxAnswer::Yes)
        return Save();
    return answer == BoxAnswer::No;
}

}  // namespace quavix
