// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include <QAbstractTableModel>

#include "music/music_list.h"

namespace quavix {

/// A column of the music list as its view shows it.
struct ListColumn {
    const char* Header;
    /// Width in the list's own units; a wider list shares its width out in these proportions.
    int Width;
};

/// In the order of the cells of a row.
inline constexpr std::array<ListColumn, 4> MainListColumns = {
    {{"Length", 49}, {"Note 1", 44}, {"Note 2", 44}, {"Mod", 39}}};

/// The music list as an item view sees it: no copy, every cell is read from the list when it is shown. The
/// list must outlive it.
class MusicListModel : public QAbstractTableModel, private MusicListObserver {
    Q_OBJECT

  public:
    explicit MusicListModel(MusicList& list, QObject* parent = nullptr);
    ~MusicListModel() override;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// True while rows come or go: what views then do to their selection is no user's doing.
    bool IsChanging() const { return isChanging_; }

  private:
    void BeforeRowInserted(std::int32_t row) override;
    void RowInserted(std::int32_t row) override;
    void BeforeRowRemoved(std::int32_t row) override;
    void RowRemoved(std::int32_t row) override;
    void BeforeRowsInserted(std::span<const std::int32_t> rows) override;
    void RowsInserted(std::span<const std::int32_t> rows) override;
    void BeforeRowsRemoved(std::span<const std::int32_t> rows) override;
    void RowsRemoved(std::span<const std::int32_t> rows) override;
    void BeforeReset() override;
    void Reset() override;
    void CellChanged(std::int32_t row, Cell cell) override;

    MusicList& list_;
    bool isChanging_ = false;
};

}  // namespace quavix
