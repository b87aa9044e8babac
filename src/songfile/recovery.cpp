// SPDX-License-Identifier: MIT
#include "songfile/recovery.h"

#include <utility>

#include <fmt/format.h>

#include "shell/runtime_error.h"
#include "shell/scoped.h"
#include "songfile/song_format.h"

namespace quavix {
namespace {

std::string Described(const RecoveryNotes& notes) {
    return fmt::format("{}{}", notes.FileName.empty() ? "a new song without a file" : notes.FileName,
                       notes.Written.empty() ? "" : fmt::format(", as it was on {}", notes.Written));
}

}  // namespace

Recovery::Recovery(RecoveryParts parts)
    : p_(std::move(parts)),
      slots_(p_.Disk, p_.Folder),
      copied_(p_.Changes),
      timer_(p_.Ticks, p_.Handlers, "RecoveryTimer_Timer", [this] { Tick(); }) {
    p_.Changes.Watch([this](std::uint64_t) { SongChanged(); });
    p_.Document.Modified().Watch([this](bool modified) {
        if (!modified)
            DeleteCopy();
    });
}

void Recovery::SongChanged() {
    if (!timer_.IsRunning() && !ended_)
        timer_.Start(DelayMs);
}

bool Recovery::HasUncopiedChanges() const {
    return p_.Document.Modified() && p_.Changes != copied_;
}

void Recovery::Tick() {
    timer_.Stop();
    if (!HasUncopiedChanges())
        return;
    if (p_.State.MusicIsPlaying || p_.ToneSounds() || p_.Document.IsLoading())
        timer_.Start(RetryMs);
    else
        Write();
}

void Recovery::Write() {
    const std::error_code error = WriteCopy();
    const std::string problem = error ? error.message() : "";
    if (error)
        timer_.Start(RetryAfterErrorMs);
    if (error && problem != problem_.Get())
        p_.Log.Text("The recovery copy can't be written in \"{}\": {}", p_.Folder, problem);
    problem_ = problem;
}

std::error_code Recovery::WriteCopy() {
    std::error_code error;
    if (!slot_)
        slot_ = slots_.TakeFree(error);
    if (!slot_)
        return error;
    const auto file = p_.Disk.OpenForOutput(slot_->CopyName, error);
    if (!file)
        return error;
    const std::string written = WrittenAt(p_.Time.LocalDate(), p_.Time.LocalTime());
    error = WriteSong(p_.Song, p_.Entry, p_.List, *file);
    if (!error)
        error = file->Write(RecoveryComments({p_.Document.FileName(), written}));
    if (!error)
        error = file->Commit();
    if (!error)
        copied_ = p_.Changes;
    return error;
}

void Recovery::DeleteCopy() {
    if (!slot_)
        return;
    const std::error_code error = p_.Disk.Delete(slot_->CopyName);
    if (error && error != std::errc::no_such_file_or_directory)
        p_.Log.Text("The recovery copy \"{}\" can't be deleted: {}", slot_->CopyName, error.message());
    slot_.reset();
}

void Recovery::End() {
    timer_.Stop();
    ended_ = true;
    if (givenUp_ || !p_.Document.Modified())
        DeleteCopy();
    else if (HasUncopiedChanges())
        Write();
    timer_.Stop();
    slot_.reset();
}

void Recovery::OfferLeftovers(bool songIsLoaded) {
    const std::vector<std::string> copies = slots_.Copies();
    if (songIsLoaded) {
        TellLeftovers(copies);
        return;
    }
    for (const std::string& copyName : copies)
        Offer(copyName);
}

void Recovery::TellLeftovers(const std::vector<std::string>& copies) {
    std::string songs;
    for (const std::string& copyName : copies) {
        std::error_code error;
        const auto leftover = slots_.TakeLeftBehind(copyName);
        if (leftover)
            songs += fmt::format("\n{}", Described(ReadRecoveryNotes(p_.Disk, copyName, error)));
    }
    if (songs.empty())
        return;
    p_.Boxes.Show({.Title = "There is unsaved work",
                   .Text = "Quavix once ended before these songs were saved:\n" + songs +
                           "\n\nThey are kept. Start Quavix without a song to get them back.",
                   .Icon = BoxIcon::Information});
}

void Recovery::Offer(const std::string& copyName) {
    std::optional<RecoverySlot> leftover = slots_.TakeLeftBehind(copyName);
    if (!leftover)
        return;
    std::error_code error;
    const RecoveryNotes notes = ReadRecoveryNotes(p_.Disk, copyName, error);
    RaiseFileError(error, copyName);
    const BoxAnswer answer = p_.Boxes.Show(
        {.Title = "There is unsaved work",
         .Text = fmt::format("Quavix ended before this song was saved:\n\n{}\n\nLoad it now? \"No\" deletes "
                             "it for good, \"Cancel\" keeps it for the next start.{}",
                             Described(notes),
                             hasRecovered_ ? "\n\nThe song that you have just got back is kept for the next "
                                             "start if you load this one."
                                           : ""),
         .Icon = BoxIcon::Question,
         .Buttons = BoxButtons::YesNoCancel});
    if (answer == BoxAnswer::Yes)
        Load(std::move(*leftover), notes.FileName);
    else if (answer == BoxAnswer::No)
        RaiseFileError(p_.Disk.Delete(copyName), copyName);
}

void Recovery::Load(RecoverySlot leftover, const std::string& fileName) {
    if (HasUncopiedChanges())
        RaiseFileError(WriteCopy(), p_.Folder);
    // Set aside, so that loading does not touch the present song's copy, which stays.
    std::optional<RecoverySlot> present = std::exchange(slot_, std::nullopt);
    LoadResult loaded;
    const AtScopeEnd takeBack([&] {
        if (!loaded)
            slot_ = std::move(present);
    });
    loaded = p_.Document.Recover(leftover.CopyName, fileName);
    if (loaded.Whole) {
        // The loaded copy becomes this process's copy, so that a copy exists at all times.
        slot_ = std::move(leftover);
        copied_ = p_.Changes;
        hasRecovered_ = true;
    }
}

}  // namespace quavix
