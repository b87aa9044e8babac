// SPDX-License-Identifier: MIT
#include "songfile/save_load.h"

namespace quavix {

void SaveLoad::SaveLoadButton_Click() {
    view_.EnableMainForm(false);
    view_.ShowSaveLoadForm(true);
}

void SaveLoad::SaveButton_Click() {
    CloseAfter([this] { document_.SaveAs(); });
}

void SaveLoad::LoadButton_Click() {
    CloseAfter([this] {
        if (document_.MayClose())
            document_.Load();
    });
}

void SaveLoad::CancelButton_Click() {
    Close();
}

template <typename Action>
void SaveLoad::CloseAfter(Action action) {
    try {
        action();
    } catch (...) {
        Close();
        throw;
    }
    Close();
}

void SaveLoad::Close() {
    view_.EnableMainForm(true);
    view_.ShowSaveLoadForm(false);
    view_.BringMainFormToFront();
}

}  // namespace quavix
