#pragma once

#include "LibraryBrowser.h"

#include <QObject>

#include <vector>

namespace studio {

/// Makes the library browsers, and speaks for all of them.
class LibraryBrowsers : public QObject, public CorvexEditport::EditportFactory {
    Q_OBJECT

public:
    LibraryBrowsers(OpenLibrary materials, OpenLibrary textures,
                    LibraryBrowser::FieldNames fieldNames);

    CorvexEditport::Editport* CreateEditport(QWidget* parent,
                                             CorvexEditport::BrowserKind kind) override;

    /// Shows the open library anew, after a change of it; marks and reveals an entry of this id if
    /// there is one.
    void ShowAgain(LibraryKind kind, EntryId revealed);
    /// Shows what another program changed in the open library, with the marked entries still
    /// marked. Errors: FileFailed.
    void Refresh(LibraryKind kind);
    /// Null while no library is open.
    [[nodiscard]] LibraryFile* Open(LibraryKind kind) const;
    [[nodiscard]] std::vector<LibraryBrowser*> Of(LibraryKind kind) const;

Q_SIGNALS:
    void RenameWanted(studio::LibraryKind kind, std::int64_t id, const QString& name);
    void DeletePressed(studio::LibraryKind kind);
    void MenuWanted(studio::LibraryBrowser& browser, QPoint globalPosition);
    /// For the status line.
    void Message(const QString& text);

private:
    OpenLibrary m_materials;
    OpenLibrary m_textures;
    LibraryBrowser::FieldNames m_fieldNames;
    std::vector<QPointer<LibraryBrowser>> m_browsers;
};

}  // namespace studio
