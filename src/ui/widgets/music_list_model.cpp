// SPDX-License-Identifier: MIT
#include "ui/widgets/music_list_model.h"

#include <QCoreApplication>

namespace quavix {
namespace {

QString WithoutSigns(const std::string& note) {
    return QString::fromStdString(note).replace("#", " sharp ");
}

/// Returns a row for screen readers: "Quarter, C4 and E4, dotted".
QString ReadOut(const MusicLine& line) {
    QStringList notes;
    for (const std::string& note : {line.Note1, line.Note2}) {
        if (!note.empty())
            notes += WithoutSigns(note);
    }
    QString text = QString::fromStdString(line.Length) + ", " +
                   (notes.isEmpty() ? QCoreApplication::translate("MusicList", "silent")
                                    : notes.join(QCoreApplication::translate("MusicList", " and ")));
    const QString mod = QString::fromStdString(line.Mod);
    if (mod == "Dot")
        text += QCoreApplication::translate("MusicList", ", dotted");
    else if (mod == "Tri")
        text += QCoreApplication::translate("MusicList", ", triplet");
    else if (!mod.isEmpty())
        text += ", " + mod;
    return text;
}

/// Returns true for consecutive rows, which are reported as such; others are reported as a reset.
bool AreOneBlock(std::span<const std::int32_t> rows) {
    return static_cast<std::size_t>(rows.back() - rows.front()) + 1 == rows.size();
}

}  // namespace

MusicListModel::MusicListModel(MusicList& list, QObject* parent) : QAbstractTableModel(parent), list_(list) {
    list_.AddObserver(*this);
}

MusicListModel::~MusicListModel() {
    list_.RemoveObserver(*this);
}

int MusicListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : list_.Count();
}

int MusicListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(MainListColumns.size());
}

QVariant MusicListModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    if (role == Qt::AccessibleTextRole)
        return ReadOut(list_.Line(index.row() + 1));
    if (role != Qt::DisplayRole)
        return {};
    const std::string_view text = list_.Text(index.row() + 1, static_cast<Cell>(index.column()));
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QVariant MusicListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role == Qt::DisplayRole && orientation == Qt::Horizontal && section >= 0 && section < columnCount({}))
        return QString(MainListColumns[static_cast<std::size_t>(section)].Header);
    if (role == Qt::TextAlignmentRole && orientation == Qt::Horizontal)
        return int(Qt::AlignLeft | Qt::AlignVCenter);
    return QAbstractTableModel::headerData(section, orientation, role);
}

void MusicListModel::BeforeRowInserted(std::int32_t row) {
    isChanging_ = true;
    beginInsertRows({}, row - 1, row - 1);
}

void MusicListModel::RowInserted(std::int32_t) {
    endInsertRows();
    isChanging_ = false;
}

void MusicListModel::BeforeRowRemoved(std::int32_t row) {
    isChanging_ = true;
    beginRemoveRows({}, row - 1, row - 1);
}

void MusicListModel::RowRemoved(std::int32_t) {
    endRemoveRows();
    isChanging_ = false;
}

void MusicListModel::BeforeRowsInserted(std::span<const std::int32_t> rows) {
    if (!AreOneBlock(rows)) {
        BeforeReset();
        return;
    }
    isChanging_ = true;
    beginInsertRows({}, rows.front() - 1, rows.back() - 1);
}

void MusicListModel::RowsInserted(std::span<const std::int32_t> rows) {
    if (AreOneBlock(rows))
        RowInserted(rows.front());
    else
        Reset();
}

void MusicListModel::BeforeRowsRemoved(std::span<const std::int32_t> rows) {
    if (!AreOneBlock(rows)) {
        BeforeReset();
        return;
    }
    isChanging_ = true;
    beginRemoveRows({}, rows.front() - 1, rows.back() - 1);
}

void MusicListModel::RowsRemoved(std::span<const std::int32_t> rows) {
    if (AreOneBlock(rows))
        RowRemoved(rows.front());
    else
        Reset();
}

void MusicListModel::BeforeReset() {
    isChanging_ = true;
    beginResetModel();
}

void MusicListModel::Reset() {
    endResetModel();
    isChanging_ = false;
}

void MusicListModel::CellChanged(std::int32_t row, Cell cell) {
    const QModelIndex changed = index(row - 1, static_cast<int>(cell));
    Q_EMIT dataChanged(changed, changed, {Qt::DisplayRole, Qt::AccessibleTextRole});
}

}  // namespace quavix
