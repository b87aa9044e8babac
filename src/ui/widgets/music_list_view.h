// SPDX-License-Identifier: MIT
#pragma once

#include <QTableView>

#include "ui/widgets/music_list_model.h"

namespace quavix {

/// The view of the music list: its highlighted rows and the list's selection are one and the same, whoever
/// changes them. Nothing in it takes longer for a longer song while rows are only shown.
class MusicListView : public QTableView, private MusicListObserver {
    Q_OBJECT

  public:
    explicit MusicListView(QWidget* parent = nullptr);
    ~MusicListView() override;

    /// Shows a list, which must outlive the view. Called once.
    void SetList(MusicList& list);

  Q_SIGNALS:
    /// The user has clicked a row or its number, or pressed Enter on it; rows count from 1. A click that only
    /// extends the selection is none, and neither is the repetition of Enter held down.
    void ItemClicked(int row);
    /// The user has changed the selection in another way.
    void SelectionMoved();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// Home and End go to the first and the last row.
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

  private:
    // MusicListObserver: what others do to the selection.
    void RowRemoved(std::int32_t) override { ShowSelection(); }
    void Reset() override { ShowSelection(); }
    void SelectionChanged() override { ShowSelection(); }
    void EnsureVisible(std::int32_t row) override;

    void ShowSelection();
    void WriteSelection();
    void TellSelectionMoved();
    void Click(int row);
    RowRuns SelectedRuns() const;

    MusicList* list_ = nullptr;
    MusicListModel* model_ = nullptr;
    bool extendsSelection_ = false;
    // From the press to the release of a click it isn't known whether it is one on a row.
    bool clicking_ = false;
    bool movedInClick_ = false;
    bool syncing_ = false;
};

}  // namespace quavix
