// SPDX-License-Identifier: MIT
#include "music/note_entry.h"

#include <string>

#include "music/lengths.h"
#include "music/notes.h"
#include "music/selection.h"

namespace quavix {
namespace {

/// Returns the name of a note number, or "Err" with the number and "-" for an invalid one.
std::string NoteLetterOf(std::int32_t noteNum) {
    const std::string letter = NoteNumToLetter(noteNum);
    return letter.empty() ? "Err" + std::to_string(noteNum) + "-" : letter;
}

std::string GestureName(std::int32_t noteNum, const std::string& note, bool replace) {
    if (noteNum == -1)
        return "Blank line";
    return (replace ? "Replace with " : "Add note ") + note;
}

}  // namespace

void NoteEntry::AddNote(std::int32_t noteNum, std::int32_t octave, std::int32_t lengthIndex) {
    const std::string length = GetLengthAsWritten(lengthIndex);
    const LogBlock block(log_, "AddNote()", "AddNote({}, {}, {} ({})) - START", noteNum, octave, lengthIndex,
                         length);
    const std::string noteLetter = NoteLetterOf(noteNum);
    log_.Text("NoteLetter = {}", noteLetter);
    const std::int32_t insertPoint = FindInsertPoint();
    const bool replace = DecideToReplace(insertPoint);

    const EditGesture gesture(history_, GestureName(noteNum, noteLetter + std::to_string(octave), replace));
    if (replace)
        log_.LogText("REPLACING (doing nothing here)...");
    else
        InsertLine(insertPoint, length);
    WriteNote(insertPoint, noteLetter, octave);
    if (entry_.NoteLengthReplaceCheck)
        WriteLength(insertPoint, length);
    MoveSelection(insertPoint);
}

std::int32_t NoteEntry::FindInsertPoint() {
    const std::int32_t selected = GetSelectedIndex(list_);
    std::int32_t insertPoint = list_.Count() + 1;
    if (selected == -1) {
        log_.LogText("GetSelectedIndex(MainList) returned -1 - inserting at end of list.");
    } else {
        log_.Text("GetSelectedIndex(MainList) returned {} - asking item to see if it's actually selected.",
                  selected);
        if (list_.IsSelected(selected)) {
            log_.LogText("It is! Inserting here.");
            insertPoint = selected;
        } else {
            log_.LogText("It's not - inserting at end of list.");
        }
    }
    log_.Text("InsertPoint = {}", insertPoint);
    return insertPoint;
}

bool NoteEntry::DecideToReplace(std::int32_t insertPoint) {
    bool replace = false;
    if (insertPoint == list_.Count() + 1) {
        log_.LogText("Not possible to replace as-of-yet unmade note.");
    } else if (entry_.NoteReplaceCheck) {
        log_.LogText("Possible to replace note, and replacing is wanted.");
        replace = true;
    }
    log_.Text("Replace = {}", LogFlag(replace));
    return replace;
}

void NoteEntry::InsertLine(std::int32_t insertPoint, const std::string& length) {
    log_.LogText("INSERTING (creating list item)...");
    list_.Insert(insertPoint, {.Length = length, .Note1 = {}, .Note2 = {}, .Mod = Mod()});
}

void NoteEntry::WriteNote(std::int32_t row, const std::string& noteLetter, std::int32_t octave) {
    log_.LogText("Setting note's text...");
    if (noteLetter == "-") {
        log_.LogText("It's meant to be silent.");
        return;
    }
    const bool asNote1 = entry_.AddNote1Option;
    log_.Text("It's not meant to be silent - setting text for {}", asNote1 ? "NOTE1." : "NOTE2.");
    list_.SetText(row, asNote1 ? Cell::Note1 : Cell::Note2, noteLetter + std::to_string(octave));
}

void NoteEntry::WriteLength(std::int32_t row, const std::string& length) {
    log_.LogText("Also changing main text (i.e. Length)...");
    list_.SetText(row, Cell::Length, length);
    list_.SetText(row, Cell::Mod, Mod());
    log_.Text("Modifier: {}", entry_.ModDottedCheck ? "Dotted" : entry_.ModTripletCheck ? "Triplet" : "None");
}

void NoteEntry::MoveSelection(std::int32_t insertPoint) {
    list_.EnsureVisible(insertPoint);
    if (insertPoint < list_.Count()) {
        list_.Select(insertPoint + 1);
        list_.EnsureVisible(insertPoint + 1);
    } else {
        list_.UnselectAll();
    }
}

const char* NoteEntry::Mod() const {
    return entry_.ModDottedCheck ? "Dot" : entry_.ModTripletCheck ? "Tri" : "";
}

}  // namespace quavix
