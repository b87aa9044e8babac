// SPDX-License-Identifier: MIT
#include "music/list_editing.h"
#include "playback/playback_engine.h"
#include "ui/main_window/panels.h"
#include "ui/widgets/binding.h"
#include "ui_list_panel.h"

namespace quavix {

QWidget* MakeListPanel(MusicList& list, ListEditing& editing, PlaybackEngine& playback,
                       EventBoundary& handlers, QWidget* parent) {
    auto* panel = new QWidget(parent);
    Ui::ListPanel ui{};
    ui.setupUi(panel);
    MusicListView* const view = ui.MainList;
    view->SetList(list);
    QObject::connect(view, &MusicListView::ItemClicked, view, [&playback, &handlers, view](int row) {
        RunHandler(*view, "ItemClick", handlers, [&] { playback.MainList_ItemClick(row); });
    });
    QObject::connect(view, &MusicListView::SelectionMoved, view, [&editing, &handlers, view] {
        RunHandler(*view, "SelectionMoved", handlers, [&] { editing.FollowSelection(); });
    });
    return panel;
}

}  // namespace quavix
