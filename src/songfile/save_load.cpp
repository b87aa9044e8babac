// SPDX-License-Identifier: MIT
#include "songfile/save_load.h"

#include "shell/scoped.h"

namespace quavix {

void SaveLoad::SaveLoadButton_Click() {
    view_.EnableMainForm(false);
    view_.ShowSaveLoadForm(true);
}

void SaveLoad::SaveButton_Click() {
    const AtScopeEnd close([this] { Close(); });
    document_.SaveAs();
}

void SaveLoad::LoadButton_Click() {
    const AtScopeEnd close([this] { Close(); });
    if (document_.MayClose())
        document_.Load();
}

void SaveLoad::CancelButton_Click() {
    Close();
}

void SaveLoad::Close() {
    view_.EnableMainForm(true);
    view_.ShowSaveLoadForm(false);
    view_.BringMainFormToFront();
}

}  // namespace quavix
