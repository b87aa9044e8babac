// SPDX-License-Identifier: MIT
#include "music/mod_buttons.h"

#include "music/selection.h"
#include "shell/scoped.h"

namespace quavix {
namespace {

/// What a box does to the selected lines when it is un-ticked.
constexpr const char* PlainLength = "Plain length";

}  // namespace

ModButtons::ModButtons(MainFields& fields, MusicList& list, EditHistory& history, DebugLog& log)
    : fields_(fields), list_(list), history_(history), log_(log) {
    fields_.ModDottedCheck.Watch([this](bool) { ModDottedCheck_Click(); });
    fields_.ModTripletCheck.Watch([this](bool) { ModTripletCheck_Click(); });
}

void ModButtons::ModDottedCheck_Click() {
    const EditGesture gesture(history_, fields_.ModDottedCheck ? "Dotted" : PlainLength);
    Clicked(fields_.ModDottedCheck, fields_.ModTripletCheck, "Dot");
}

void ModButtons::ModTripletCheck_Click() {
    const EditGesture gesture(history_, fields_.ModTripletCheck ? "Triplet" : PlainLength);
    Clicked(fields_.ModTripletCheck, fields_.ModDottedCheck, "Tri");
}

void ModButtons::Clicked(bool ticked, Watched<bool>& other, const char* mod) {
    if (!clearingOther_) {
        const ScopedFlag clearing(clearingOther_);
        other = false;
    }
    if (!following_)
        SetSelectedLineMod(list_, ticked ? mod : "");
}

void ModButtons::UpdateModButtons() {
    if (!HasRealSelection(list_))
        return;
    const ScopedFlag following(following_);
    if (SelectedLineModContains(list_, "dot")) {
        log_.Text("UpdateModButtons() - Dotted");
        fields_.ModDottedCheck = true;
        fields_.ModTripletCheck = false;
    } else if (SelectedLineModContains(list_, "tri")) {
        log_.Text("UpdateModButtons() - Triplet");
        fields_.ModDottedCheck = false;
        fields_.ModTripletCheck = true;
    } else {
        fields_.ModDottedCheck = false;
        fields_.ModTripletCheck = false;
    }
}

}  // namespace quavix
