#pragma once

#include "LibraryModel.h"
#include "MaterialText.h"
#include <CorvexMaterial/CorvexEditport.h>

#include <QPointer>
#include <QTimer>
#include <QWidget>

namespace studio {

class DropShelf;
class FilterButton;
class LibraryDelegate;
class LibraryView;
class SearchField;

/// The studio's library browser: thumbnails with names, search beside it, dragging out of it. The
/// indexes that it tells and is told are those of the file, whatever the search shows.
class LibraryBrowser : public QWidget, public CorvexEditport::Editport {
    Q_OBJECT

public:
    using FieldNames = std::function<std::vector<std::string>()>;

    /// The marks outlive the browser.
    LibraryBrowser(OpenLibrary library, LibraryKind kind, FieldNames fieldNames, UserMarks& marks,
                   QWidget* parent);
    ~LibraryBrowser() override;

    [[nodiscard]] LibraryKind Kind() const;
    /// Null while no library is shown.
    [[nodiscard]] LibraryFile* File() const { return m_model->File(); }
    /// Of what is selected, in file order.
    [[nodiscard]] std::vector<EntryId> SelectedIds() const;
    /// The collection that is searched for; empty when it is not one alone.
    [[nodiscard]] std::string ShownCollection() const;
    void ShowMarks();
    void ShowPicture(EntryId id);
    /// Marks an entry and brings it into view; nobody is told.
    void Reveal(std::int32_t fileIndex);
    /// Lets the user type a name for the selected entry.
    void EditName();
    /// Shows the open library anew, which has this many entries now, where it was.
    void Reread(std::int32_t count, std::optional<std::int32_t> marked = {});
    /// Says who uses an entry of a library in memory, for its tool tip.
    void SetUsers(std::function<QString(EntryId)> users) { m_users = std::move(users); }
    /// Says where what is dragged out of a library in memory may go; empty for nowhere.
    void SetShelf(std::function<QString()> library) { m_shelfLibrary = std::move(library); }
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
    /// The user's own, by a click on a star or by keys: of one entry or of those selected.
    void FavouriteWanted(const std::vector<studio::EntryId>& ids);
    void RatingWanted(const std::vector<studio::EntryId>& ids, int rating);
    void PictureMissing(std::int64_t id);
    // After the drop is over, so that whoever answers may show a message.
    void MaterialDropped(const studio::NamedMaterial& named);
    void FilesDropped(const QStringList& files);
    /// An entry was dragged where the library is that was open before this one.
    void CopyDropped(const std::vector<studio::EntryId>& ids);
    /// The entry was chosen, and has been for a moment.
    void Used(const std::string& library, std::int64_t id);
    /// The context menu of the selected entry, or of the library when there is none.
    void MenuWanted(QPoint globalPosition);
    /// For the status line.
    void Message(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Connect();
    void ConnectMarks();
    [[nodiscard]] QStringList SearchWords() const;
    void UseSoon(int row);
    [[nodiscard]] bool Takes(const QDropEvent& event);
    void TakeDropped(const QMimeData& dropped);
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
    QPointer<QWidget> m_searchRow;
    QPointer<SearchField> m_search;
    FilterButton* m_filter = nullptr;  ///< as long as the field is there
    DropShelf* m_shelf;
    QTimer m_useSoon;
    std::pair<std::string, EntryId> m_chosen;
    CorvexEditport::EditportListener* m_listener = nullptr;
    CorvexEditport::ScrollRange m_told;
    bool m_scrolledFromOutside = false;
    std::string m_path;  ///< of the library shown last
    std::function<QString(EntryId)> m_users;
    std::function<QString()> m_shelfLibrary;
    int m_position = 0;  ///< where it was scrolled to
};

}  // namespace studio
