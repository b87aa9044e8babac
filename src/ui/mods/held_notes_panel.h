// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

#include "midi/using_form.h"
#include "shell/event_boundary.h"

class QBoxLayout;
class QGroupBox;

namespace quavix {

/// The common part of the windows whose notes go through the cycler: the channels to listen to, the grid of
/// held notes, and the playing options.
class HeldNotesPanel : public QWidget {
    Q_OBJECT

  public:
    /// The form must outlive the panel's use.
    HeldNotesPanel(UsingForm& form, const QString& autoTimeCaption, EventBoundary& handlers,
                   QWidget* parent = nullptr);

  private:
    QGroupBox* MakeChannels(UsingForm& form, EventBoundary& handlers);
    QWidget* MakeHeading(UsingForm& form);
    QWidget* MakeGrid(UsingForm& form);
    void AddCheck(QBoxLayout* column, const char* name, const QString& caption, const char* toolTip,
                  Watched<bool>& value, EventBoundary& handlers);
};

}  // namespace quavix
