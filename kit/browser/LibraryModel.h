#pragma once

#include "LibraryFile.h"
#include "LibraryQuery.h"
#include "LibraryThumbnails.h"
#include "UserMarks.h"

#include <QAbstractListModel>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace studio {

/// The library that is open now; null while none is.
using OpenLibrary = std::function<LibraryFile*()>;

/// The entries of the open library, or those that a search found, one row each in file order. A row
/// is read from the file when it is looked at; nothing is kept but some thumbnails.
class LibraryModel : public QAbstractListModel {
    Q_OBJECT

public:
    /// The marks outlive the model.
    LibraryModel(OpenLibrary library, LibraryKind kind, UserMarks& marks, QObject* parent);

    /// This many entries of the open library; -1 = no library is open.
    void ShowEntries(std::int32_t count);
    [[nodiscard]] std::int32_t EntryCount() const { return m_entries; }
    /// No query: all entries. A search that fails finds none; `Failed` tells why.
    void SetQuery(std::optional<LibraryQuery> query);

    [[nodiscard]] const std::optional<LibraryQuery>& Query() const { return m_query; }
    /// The user's favourites or ratings of some entries are others.
    void ShowMarks();

    [[nodiscard]] LibraryKind Kind() const { return m_kind; }
    [[nodiscard]] LibraryFile* File() const { return m_entries < 0 ? nullptr : m_library(); }
    /// Index of a row in file order.
    [[nodiscard]] std::int32_t FileIndex(int row) const;
    /// -1 when the search did not find the entry.
    [[nodiscard]] int RowOf(std::int32_t fileIndex) const;
    /// Of the user who looks at it.
    [[nodiscard]] EntryMark Mark(int row) const;
    /// Nobody keeps marks of what is in memory.
    [[nodiscard]] bool HasMarks() const
    {
        return m_entries >= 0 && m_library() && !m_library()->IsInMemory();
    }
    void ForgetPicture(EntryId id) { m_thumbnails.Forget(id); }
    /// Drawn for a square of this many device pixels; null when the file cannot be read.
    [[nodiscard]] QPixmap Thumbnail(int row, int side) const;
    [[nodiscard]] QString ToolTip(int row, const std::vector<std::string>& fieldNames) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// A new name; see `RenameWanted`.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

Q_SIGNALS:
    /// The user typed another name.
    void RenameWanted(std::int64_t id, const QString& name);
    /// An entry of a library in memory is drawn without a picture.
    void PictureMissing(std::int64_t id) const;
    /// An entry cannot be read. Once until the entries are shown anew.
    void Failed(const QString& message) const;

private:
    template <typename Value, typename Read>
    Value Reading(Value fallback, const Read& read) const;
    void Find();

    OpenLibrary m_library;
    LibraryKind m_kind;
    UserMarks& m_marks;
    std::int32_t m_entries = -1;
    std::optional<LibraryQuery> m_query;
    std::vector<std::int32_t> m_found;  ///< file indexes, while there is a query
    mutable LibraryThumbnails m_thumbnails;
    mutable bool m_told = false;
};

}  // namespace studio
