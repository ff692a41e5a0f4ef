#pragma once

#include "LibraryModel.h"
#include <CorvexMaterial/CorvexEditport.h>

#include <QPointer>
#include <QWidget>

namespace studio {

class LibraryDelegate;
class LibraryView;
class SearchField;

/// The studio's library browser: thumbnails with names, search beside it, dragging out of it. The
/// indexes that it tells and is told are those of the file, whatever the search shows.
class LibraryBrowser : public QWidget, public CorvexEditport::Editport {
    Q_OBJECT

public:
    using FieldNames = std::function<std::vector<std::string>()>;

    LibraryBrowser(OpenLibrary library, LibraryKind kind, FieldNames fieldNames, QWidget* parent);
    ~LibraryBrowser() override;

    [[nodiscard]] LibraryKind Kind() const;
    /// Null while no library is shown.
    [[nodiscard]] LibraryFile* File() const { return m_model->File(); }
    /// Marks an entry and brings it into view; nobody is told.
    void Reveal(std::int32_t fileIndex);
    /// Lets the user type a name for the selected entry.
    void EditName();
    /// Shows the open library anew, which has this many entries now, where it was.
    void Reread(std::int32_t count, std::optional<std::int32_t> marked = {});
    /// As if the user had clicked the selected entry.
    void ChooseSelected();

    QWidget& Widget() override { return *this; }
    QWidget* Companion() override;
    void ShowItems(std::int32_t count) override;
    void Clear() override;
    std::int32_t SelectedIndex() override;
    void ReleaseSelection() override;
    void Redraw() override;
    void SetBackColor(CorvexMaterial::Colour colour) override;
    void SetListener(CorvexEditport::EditportListener* listener) override;
    void ScrollFromOutside() override;
    void ScrollTo(std::int32_t position) override;

Q_SIGNALS:
    void RenameWanted(std::int64_t id, const QString& name);
    void DeletePressed();
    /// The context menu of the selected entry, or of the library when there is none.
    void MenuWanted(QPoint globalPosition);
    /// For the status line.
    void Message(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Connect();
    void ShowEntries(std::int32_t count);
    void Search(const std::optional<LibraryQuery>& query);
    void UpdateTexts();
    [[nodiscard]] QString EmptyText() const;
    void Choose(int row);
    void Open(int row);
    void Drag(int row);
    void TellScroll();
    [[nodiscard]] int SelectedRow() const;

    FieldNames m_fieldNames;
    LibraryModel* m_model;
    LibraryDelegate* m_delegate;
    LibraryView* m_view;
    QPointer<SearchField> m_search;
    CorvexEditport::EditportListener* m_listener = nullptr;
    CorvexEditport::ScrollRange m_told;
    bool m_scrolledFromOutside = false;
    std::string m_path;  ///< of the library shown last
    int m_position = 0;  ///< where it was scrolled to
};

}  // namespace studio
