#pragma once

#include "LibraryBrowser.h"

#include <QObject>

#include <vector>

namespace studio {

/// Makes the library browsers, and speaks for all of them.
class LibraryBrowsers : public QObject, public CorvexEditport::EditportFactory {
    Q_OBJECT

public:
    /// The marks outlive the browsers.
    LibraryBrowsers(OpenLibrary materials, OpenLibrary textures,
                    LibraryBrowser::FieldNames fieldNames, UserMarks& marks);

    CorvexEditport::Editport* CreateEditport(QWidget* parent,
                                             CorvexEditport::BrowserKind kind) override;

    /// Shows the open library anew, after a change of it; marks and reveals an entry of this id if
    /// there is one.
    void ShowAgain(LibraryKind kind, EntryId revealed);
    /// The same entries, some of them changed by the program itself, with the marked one still
    /// marked.
    void ShowFollowed(LibraryKind kind);
    /// An entry has a picture now.
    void ShowPicture(LibraryKind kind, EntryId id);
    /// Shows what another program changed in the open library, with the marked entries still
    /// marked. Errors: FileFailed.
    void Refresh(LibraryKind kind);
    /// The user's favourites and ratings.
    [[nodiscard]] UserMarks& Marks() { return m_marks; }
    void ShowMarks();
    /// Null while no library is open.
    [[nodiscard]] LibraryFile* Open(LibraryKind kind) const;
    [[nodiscard]] std::vector<LibraryBrowser*> Of(LibraryKind kind) const;

Q_SIGNALS:
    void RenameWanted(studio::LibraryKind kind, std::int64_t id, const QString& name);
    void DeletePressed(studio::LibraryKind kind);
    void FavouriteWanted(studio::LibraryKind kind, const std::vector<studio::EntryId>& ids);
    void RatingWanted(studio::LibraryKind kind, const std::vector<studio::EntryId>& ids,
                      int rating);
    void MaterialDropped(const studio::NamedMaterial& named);
    void FilesDropped(const QStringList& files);
    void CopyDropped(const std::vector<studio::EntryId>& ids);
    /// An entry of a library in memory is seen without a picture.
    void PictureMissing(std::int64_t id);
    void Used(const std::string& library, std::int64_t id);
    void MenuWanted(studio::LibraryBrowser& browser, QPoint globalPosition);
    /// For the status line.
    void Message(const QString& text);

private:
    OpenLibrary m_materials;
    OpenLibrary m_textures;
    LibraryBrowser::FieldNames m_fieldNames;
    UserMarks& m_marks;
    std::vector<QPointer<LibraryBrowser>> m_browsers;
};

}  // namespace studio
