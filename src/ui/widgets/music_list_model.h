// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include <QAbstractTableModel>

#include "music/music_list.h"

namespace quavix {

/// A column in the view of the music list.
struct ListColumn {
    const char* Header;
    /// Width in the list's own units; a wider list keeps these proportions.
    int Width;
};

/// The columns in the order of a row's cells.
inline constexpr std::array<ListColumn, 4> MainListColumns = {
    {{"Length", 49}, {"Note 1", 44}, {"Note 2", 44}, {"Mod", 39}}};

/// The music list for item views: not a copy, every cell is read from the list when shown. The list must
/// outlive it.
class MusicListModel : public QAbstractTableModel, private MusicListObserver {
    Q_OBJECT

  public:
    explicit MusicListModel(MusicList& list, QObject* parent = nullptr);
    ~MusicListModel() override;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// True while rows are inserted or removed: views then change their selection without the user.
    bool IsChanging() const { return isChanging_; }

  private:
    void BeforeRowsInserted(std::span<const std::int32_t> rows) override;
    void RowsInserted(std::span<const std::int32_t> rows) override;
    void BeforeRowsRemoved(std::span<const std::int32_t> rows) override;
    void RowsRemoved(std::span<const std::int32_t> rows) override;
    void BeforeReset() override;
    void Reset() override;
    void CellChanged(std::int32_t row, Cell cell) override;

    /// Begins and ends a change of rows, which views are told as such if they are one block, as a reset
    /// otherwise.
    void Begin(std::span<const std::int32_t> rows,
               void (MusicListModel::*begin)(const QModelIndex&, int, int));
    void End(std::span<const std::int32_t> rows, void (MusicListModel::*end)());

    MusicList& list_;
    bool isChanging_ = false;
};

}  // namespace quavix
