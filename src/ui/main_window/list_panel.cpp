// SPDX-License-Identifier: MIT
#include "ui/main_window/list_panel.h"

#include "ui/widgets/binding.h"
#include "ui_list_panel.h"

namespace quavix {

ListPanel::ListPanel(MusicList& list, ListEditing& editing, PlaybackEngine& playback, EventBoundary& handlers,
                     QWidget* parent)
    : QWidget(parent),
      list_(list),
      editing_(editing),
      playback_(playback),
      handlers_(handlers),
      ui_(std::make_unique<Ui::ListPanel>()) {
    ui_->setupUi(this);
    ui_->MainList->SetList(list_);
    connect(ui_->MainList, &MusicListView::ItemClicked, this, [this](int row) {
        RunHandler(*ui_->MainList, "ItemClick", handlers_, [&] { playback_.MainList_ItemClick(row); });
    });
    connect(ui_->MainList, &MusicListView::SelectionMoved, this, [this] {
        RunHandler(*ui_->MainList, "SelectionMoved", handlers_, [this] { editing_.FollowSelection(); });
    });
}

ListPanel::~ListPanel() = default;

}  // namespace quavix
