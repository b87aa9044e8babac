// SPDX-License-Identifier: MIT
#include "ui/widgets/music_list_view.h"

#include <algorithm>
#include <utility>

#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include "ui/widgets/binding.h"
#include "ui/widgets/music_list_model.h"

namespace quavix {
namespace {

/// Modifier keys with which a click extends the selection.
constexpr Qt::KeyboardModifiers ExtendingKeys = Qt::ControlModifier | Qt::ShiftModifier;

}  // namespace

MusicListView::MusicListView(QWidget* parent) : QTableView(parent) {
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    verticalHeader()->setHighlightSections(false);
    constexpr int RowPadding = 6;
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + RowPadding);
    connect(this, &QTableView::clicked, this, [this](const QModelIndex& index) {
        if (!extendsSelection_)
            Click(index.row() + 1);
    });
    connect(verticalHeader(), &QHeaderView::sectionClicked, this, [this](int section) {
        if ((QGuiApplication::keyboardModifiers() & ExtendingKeys) == 0)
            Click(section + 1);
    });
}

MusicListView::~MusicListView() {
    if (list_ != nullptr)
        list_->RemoveObserver(*this);
}

void MusicListView::SetList(MusicList& list) {
    list_ = &list;
    model_ = new MusicListModel(list, this);
    setModel(model_);
    // Separate, because the header would check for each column whether all rows are selected.
    horizontalHeader()->setSelectionModel(new QItemSelectionModel(model_, horizontalHeader()));
    list.AddObserver(*this);  // after the model, which must know new rows first
    ShowSelection();
}

void MusicListView::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    if (model_ == nullptr)
        return;
    int units = 0;
    for (const ListColumn& column : MainListColumns)
        units += column.Width;
    // Computed from edges instead of widths, so that no gap remains at the right.
    int left = 0;
    int unitsSoFar = 0;
    for (std::size_t i = 0; i < MainListColumns.size(); ++i) {
        unitsSoFar += MainListColumns[i].Width;
        const int right = viewport()->width() * unitsSoFar / units;
        horizontalHeader()->resizeSection(static_cast<int>(i), right - left);
        left = right;
    }
}

void MusicListView::mousePressEvent(QMouseEvent* event) {
    extendsSelection_ = (event->modifiers() & ExtendingKeys) != 0 || event->button() != Qt::LeftButton;
    clicking_ = !extendsSelection_;
    movedInClick_ = false;
    QTableView::mousePressEvent(event);
}

void MusicListView::mouseReleaseEvent(QMouseEvent* event) {
    clicking_ = false;
    QTableView::mouseReleaseEvent(event);
    if (std::exchange(movedInClick_, false))
        Q_EMIT SelectionMoved();
}

void MusicListView::Click(int row) {
    movedInClick_ = false;
    Q_EMIT ItemClicked(row);
}

void MusicListView::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && currentIndex().isValid() && selectionModel()->isSelected(currentIndex())) {
        if (!IsRepeatedEnter(*event))
            Q_EMIT ItemClicked(currentIndex().row() + 1);
        return;
    }
    if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier) {
        event->ignore();  // the window uses it to play and stop
        return;
    }
    QTableView::keyPressEvent(event);
    // A key that moves to a row also highlights it if the row was already current.
    static constexpr int Moves[] = {Qt::Key_Up,  Qt::Key_Down,   Qt::Key_Home,
                                    Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown};
    const bool moves = std::find(std::begin(Moves), std::end(Moves), event->key()) != std::end(Moves);
    if (moves && event->modifiers() == Qt::NoModifier && !selectionModel()->hasSelection() &&
        currentIndex().isValid())
        selectRow(currentIndex().row());
}

void MusicListView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    WriteSelection();
}

void MusicListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    WriteSelection();
}

RowRuns MusicListView::SelectedRuns() const {
    std::vector<RowRun> runs;
    for (const QItemSelectionRange& range : selectionModel()->selection())
        runs.push_back({range.top() + 1, range.bottom() + 1});
    return RowRuns(std::move(runs));
}

/// Writes the view's selection to the list. Of several rows, the first is the selected item: notes are
/// entered before it, and music plays from it. The selected item stays when its highlight is gone.
void MusicListView::WriteSelection() {
    if (list_ == nullptr || syncing_ || model_->IsChanging())
        return;
    RowRuns rows = SelectedRuns();
    const std::int32_t item = rows.Count() == 0 ? list_->SelectedItem() : rows.Runs().front().First;
    if (item == list_->SelectedItem() && rows == list_->SelectedRuns())
        return;
    {
        const QScopedValueRollback syncing(syncing_, true);
        list_->SetSelectedRuns(item, std::move(rows));
    }
    if (clicking_)
        movedInClick_ = true;
    else
        Q_EMIT SelectionMoved();
}

/// Shows the list's selection in the view.
void MusicListView::ShowSelection() {
    if (syncing_)
        return;
    const QScopedValueRollback syncing(syncing_, true);
    const std::int32_t item = list_->SelectedItem();
    const auto rowFlags = QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
    if (list_->SelectedCount() == 0) {
        selectionModel()->clearSelection();
    } else if (list_->SelectedCount() == 1 && item != -1 && list_->IsSelected(item)) {
        selectionModel()->setCurrentIndex(model_->index(item - 1, 0), rowFlags);
    } else {
        const int lastColumn = model_->columnCount() - 1;
        QItemSelection selection;
        for (const RowRun& run : list_->SelectedRuns().Runs())
            selection.append({model_->index(run.First - 1, 0), model_->index(run.Last - 1, lastColumn)});
        selectionModel()->select(selection, rowFlags);
    }
}

QModelIndex MusicListView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    if (action == MoveHome)
        return model_->index(0, 0);
    if (action == MoveEnd)
        return model_->index(model_->rowCount() - 1, 0);
    return QTableView::moveCursor(action, modifiers);
}

void MusicListView::EnsureVisible(std::int32_t row) {
    executeDelayedItemsLayout();  // lays out new rows now, so that they can be scrolled to
    scrollTo(model_->index(row - 1, 0));
}

}  // namespace quavix
