// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

#include "midi/using_form.h"
#include "shell/event_boundary.h"

class QBoxLayout;
class QGroupBox;

namespace quavix {

/// What the windows have in common whose notes go through the cycler: which channels to listen to, the grid
/// of the notes that are held, and how they are played.
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
