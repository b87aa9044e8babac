// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <QWidget>

#include "music/list_editing.h"
#include "music/music_list.h"
#include "playback/playback_engine.h"
#include "shell/event_boundary.h"

namespace quavix {

namespace Ui {
class ListPanel;
}

/// The list of music.
class ListPanel : public QWidget {
    Q_OBJECT

  public:
    explicit ListPanel(MusicList& list, ListEditing& editing, PlaybackEngine& playback,
                       EventBoundary& handlers, QWidget* parent = nullptr);
    ~ListPanel() override;

  private:
    MusicList& list_;
    ListEditing& editing_;
    PlaybackEngine& playback_;
    EventBoundary& handlers_;
    std::unique_ptr<Ui::ListPanel> ui_;
};

}  // namespace quavix
