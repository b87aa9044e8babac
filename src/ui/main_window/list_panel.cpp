// SPDX-License-Identifier: MIT
#include "ui/main_window/list_panel.h"

#include "ui/widgets/binding.h"
#include "ui_list_panel.h"

namespace quavix {

ListPanel::ListPanel(const WindowParts& parts, QWidget* parent)
    : QWidget(parent), parts_(parts), ui_(std::make_unique<Ui::ListPanel>()) {
    ui_->setupUi(this);
    ui_->MainList->SetList(parts_.List);
    connect(ui_->MainList, &MusicListView::ItemClicked, this, [this](int row) {
        RunHandler(*ui_->MainList, "ItemClick", parts_.Handlers,
                   [&] { parts_.Playback.MainList_ItemClick(row); });
    });
    connect(ui_->MainList, &MusicListView::SelectionMoved, this, [this] {
        RunHandler(*ui_->MainList, "SelectionMoved", parts_.Handlers,
                   [this] { parts_.Editing.FollowSelection(); });
    });
}

ListPanel::~ListPanel() = default;

}  // namespace quavix
