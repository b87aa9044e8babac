// SPDX-License-Identifier: MIT
#include "music/dotted_triplet_boxes.h"

#include "music/selection.h"
#include "shell/scoped.h"

namespace quavix {
namespace {

/// Undo name of un-ticking a box: the selected lines lose their Mod.
constexpr const char* PlainLength = "Plain length";

}  // namespace

DottedTripletBoxes::DottedTripletBoxes(EntryOptions& entry, MusicList& list, EditHistory& history,
                                       DebugLog& log)
    : entry_(entry), list_(list), history_(history), log_(log) {
    entry_.ModDottedCheck.Watch([this](bool) { ModDottedCheck_Click(); });
    entry_.ModTripletCheck.Watch([this](bool) { ModTripletCheck_Click(); });
}

void DottedTripletBoxes::ModDottedCheck_Click() {
    const EditGesture gesture(history_, entry_.ModDottedCheck ? "Dotted" : PlainLength);
    Clicked(entry_.ModDottedCheck, entry_.ModTripletCheck, "Dot");
}

void DottedTripletBoxes::ModTripletCheck_Click() {
    const EditGesture gesture(history_, entry_.ModTripletCheck ? "Triplet" : PlainLength);
    Clicked(entry_.ModTripletCheck, entry_.ModDottedCheck, "Tri");
}

void DottedTripletBoxes::Clicked(bool ticked, Watched<bool>& other, const char* mod) {
    if (!clearingOther_) {
        const ScopedFlag clearing(clearingOther_);
        other = false;
    }
    if (!following_)
        SetSelectedLineMod(list_, ticked ? mod : "");
}

void DottedTripletBoxes::UpdateModButtons() {
    if (!HasRealSelection(list_))
        return;
    const ScopedFlag following(following_);
    const bool isDotted = SelectedLineModContains(list_, "dot");
    const bool isTriplet = !isDotted && SelectedLineModContains(list_, "tri");
    if (isDotted || isTriplet)
        log_.Text("UpdateModButtons() - {}", isDotted ? "Dotted" : "Triplet");
    entry_.ModDottedCheck = isDotted;
    entry_.ModTripletCheck = isTriplet;
}

}  // namespace quavix
