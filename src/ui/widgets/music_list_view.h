// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

#include <QTableView>

#include "ui/widgets/music_list_model.h"

namespace quavix {

/// The view of the music list: its highlighted rows always equal the list's selection. The cost of showing
/// rows does not depend on the length of the song.
class MusicListView : public QTableView, private MusicListObserver {
    Q_OBJECT

  public:
    explicit MusicListView(QWidget* parent = nullptr);
    ~MusicListView() override;

    /// Shows a list, which must outlive the view. Called once.
    void SetList(MusicList& list);

  Q_SIGNALS:
    /// Emitted when the user has clicked a row or its number, or pressed Enter on it; rows count from 1. Not
    /// emitted for clicks that extend the selection, or for auto-repeat of Enter.
    void ItemClicked(int row);
    /// Emitted when the user has changed the selection in another way.
    void SelectionMoved();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// Makes Home and End move to the first and the last row.
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

  private:
    // MusicListObserver: changes of the list's selection.
    // The toolkit itself keeps the selection when one row is inserted.
    void RowsInserted(std::span<const std::int32_t> rows) override {
        if (rows.size() > 1)
            ShowSelection();
    }
    void Reset() override { ShowSelection(); }
    void SelectionChanged() override { ShowSelection(); }
    void EnsureVisible(std::int32_t row) override;

    void ShowSelection();
    void WriteSelection();
    void Click(int row);
    RowRuns SelectedRuns() const;

    MusicList* list_ = nullptr;
    MusicListModel* model_ = nullptr;
    bool extendsSelection_ = false;
    // True from press to release of a click, which may or may not become a click on a row.
    bool clicking_ = false;
    bool movedInClick_ = false;
    bool syncing_ = false;
};

}  // namespace quavix
