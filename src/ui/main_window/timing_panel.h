// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <QGroupBox>

#include "music/main_fields.h"
#include "playback/metronome.h"
#include "shell/event_boundary.h"

namespace quavix {

namespace Ui {
class TimingPanel;
}

/// The timing settings: tempo, time signature, note/silence ratio, alternate time.
class TimingPanel : public QGroupBox {
    Q_OBJECT

  public:
    explicit TimingPanel(SongFields& song, Metronome& metronome, EventBoundary& handlers,
                         QWidget* parent = nullptr);
    ~TimingPanel() override;

  private:
    SongFields& song_;
    Metronome& metronome_;
    EventBoundary& handlers_;
    std::unique_ptr<Ui::TimingPanel> ui_;
};

}  // namespace quavix
