// SPDX-License-Identifier: MIT
#include "ui/widgets/music_list_model.h"

#include <QCoreApplication>

namespace quavix {
namespace {

/// Returns a row for screen readers: "Quarter, C4 and E4, dotted".
QString ReadOut(const MusicLine& line) {
    QStringList notes;
    for (const std::string& note : {line.Note1, line.Note2}) {
        if (!note.empty())
            notes += QString::fromStdString(note).replace("#", " sharp ");
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

/// Returns true for consecutive rows.
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

void MusicListModel::BeforeRowsInserted(std::span<const std::int32_t> rows) {
    Begin(rows, &MusicListModel::beginInsertRows);
}

void MusicListModel::RowsInserted(std::span<const std::int32_t> rows) {
    End(rows, &MusicListModel::endInsertRows);
}

void MusicListModel::BeforeRowsRemoved(std::span<const std::int32_t> rows) {
    Begin(rows, &MusicListModel::beginRemoveRows);
}

void MusicListModel::RowsRemoved(std::span<const std::int32_t> rows) {
    End(rows, &MusicListModel::endRemoveRows);
}

void MusicListModel::Begin(std::span<const std::int32_t> rows,
                           void (MusicListModel::*begin)(const QModelIndex&, int, int)) {
    isChanging_ = true;
    if (AreOneBlock(rows))
        (this->*begin)({}, rows.front() - 1, rows.back() - 1);
    else
        beginResetModel();
}

void MusicListModel::End(std::span<const std::int32_t> rows, void (MusicListModel::*end)()) {
    if (AreOneBlock(rows))
        (this->*end)();
    else
        endResetModel();
    isChanging_ = false;
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
