#include "LibraryModel.h"

#include "LibraryToolTip.h"

#include <algorithm>
#include <numeric>

namespace studio {

LibraryModel::LibraryModel(OpenLibrary library, LibraryKind kind, UserMarks& marks, QObject* parent)
    : QAbstractListModel(parent), m_library(std::move(library)), m_kind(kind), m_marks(marks)
{
}

void LibraryModel::ShowEntries(std::int32_t count)
{
    beginResetModel();
    m_entries = count;
    m_told = false;
    m_thumbnails.Clear();
    m_found.clear();
    Reading(0, [this](LibraryFile& /*file*/) {
        Find();
        return 0;
    });
    endResetModel();
}

void LibraryModel::SetQuery(std::optional<LibraryQuery> query)
{
    beginResetModel();
    m_query = std::move(query);
    m_found.clear();
    Reading(0, [this](LibraryFile& /*file*/) {
        Find();
        return 0;
    });
    endResetModel();
}

void LibraryModel::Find()
{
    if (m_query && m_entries >= 0) {
        LibraryFile* file = File();
        m_found = file->Search(*m_query, m_marks.Of(file->Path()));
    }
}

std::int32_t LibraryModel::FileIndex(int row) const
{
    return m_query ? m_found.at(static_cast<std::size_t>(row)) : row;
}

int LibraryModel::RowOf(std::int32_t fileIndex) const
{
    if (!m_query) {
        return fileIndex < m_entries ? fileIndex : -1;
    }
    const auto found = std::ranges::find(m_found, fileIndex);
    return found != m_found.end() ? static_cast<int>(found - m_found.begin()) : -1;
}

void LibraryModel::ShowMarks()
{
    const auto asks = [](const QueryTerm& term) {
        const auto* mark = std::get_if<MarkTest>(&term.test);
        // What was used last would jump away under the pointer.
        return mark != nullptr && mark->property != MarkProperty::Used;
    };
    if (m_query && std::ranges::any_of(m_query->terms, asks)) {
        SetQuery(m_query);
    } else if (rowCount() > 0) {
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
    }
}

EntryMark LibraryModel::Mark(int row) const
{
    return Reading(EntryMark(), [&](LibraryFile& file) {
        return MarkOf(m_marks.Of(file.Path()), file.IdAt(FileIndex(row)));
    });
}

// A file may vanish or be damaged at any time; a view must not see exceptions.
template <typename Value, typename Read>
Value LibraryModel::Reading(Value fallback, const Read& read) const
{
    try {
        LibraryFile* file = File();
        return file != nullptr ? read(*file) : fallback;
    } catch (const std::exception& error) {
        if (!m_told) {
            m_told = true;
            Q_EMIT Failed(QString::fromUtf8(error.what()));
        }
        return fallback;
    }
}

QPixmap LibraryModel::Thumbnail(int row, int side) const
{
    return Reading(QPixmap(), [&](LibraryFile& file) {
        const auto [picture, isStored] = m_thumbnails.Get(file, FileIndex(row), side);
        if (!isStored && file.IsInMemory()) {
            Q_EMIT PictureMissing(file.IdAt(FileIndex(row)));
        }
        return picture;
    });
}

QString LibraryModel::ToolTip(int row, const std::vector<std::string>& fieldNames) const
{
    return Reading(QString(), [&](LibraryFile& file) {
        return LibraryToolTipText(file, FileIndex(row), fieldNames, Mark(row));
    });
}

int LibraryModel::rowCount(const QModelIndex& parent) const
{
    if (parent.isValid()) {
        return 0;
    }
    return m_query ? static_cast<int>(m_found.size()) : std::max(m_entries, 0);
}

QVariant LibraryModel::data(const QModelIndex& index, int role) const
{
    const bool isName = role == Qt::DisplayRole || role == Qt::EditRole;
    if (!index.isValid() || !isName) {
        return {};
    }
    return Reading(QVariant(), [&](LibraryFile& file) -> QVariant {
        return QString::fromStdString(file.NameAt(FileIndex(index.row())));
    });
}

Qt::ItemFlags LibraryModel::flags(const QModelIndex& index) const
{
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    const LibraryFile* file = File();
    const bool canRename = file != nullptr && file->ReadOnlyReason().empty();
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled |
           Qt::ItemNeverHasChildren | (canRename ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

bool LibraryModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    const QString name = value.toString().simplified();
    if (role != Qt::EditRole || name.isEmpty() || name == data(index, role).toString()) {
        return false;
    }
    const EntryId id =
        Reading(EntryId{-1}, [&](LibraryFile& file) { return file.IdAt(FileIndex(index.row())); });
    if (id >= 0) {
        Q_EMIT RenameWanted(id, name);
    }
    return id >= 0;
}

}  // namespace studio
