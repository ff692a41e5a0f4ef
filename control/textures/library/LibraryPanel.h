#pragma once

#include <CorvexMaterial/CorvexEditport.h>

#include <QPointer>
#include <QWidget>

#include <cstdint>
#include <string>
#include <vector>

class QBoxLayout;
class QComboBox;
class QScrollBar;
class QToolButton;

namespace CorvexMaterial {

class SectionHeader;

/// What differs between the two library panels.
struct LibraryPanelKind {
    CorvexEditport::BrowserKind browser;
    QString title;
    QString addTip;
    QString deleteTip;
    QString functionsTip;
    const char* stem;  ///< the controls are named after it: "cmd" + stem + "Add"
    int rowPixels;
};

/// One library: a heading that folds, the list of libraries with its buttons, the host's browser of
/// some rows' height with its scroll bar, fewer and more rows.
class LibraryPanel : public QWidget, private CorvexEditport::EditportListener {
    Q_OBJECT

public:
    LibraryPanel(const LibraryPanelKind& kind, CorvexEditport::EditportFactory& editports,
                 QWidget* parent);
    ~LibraryPanel() override;

    [[nodiscard]] bool IsExpanded() const;
    void SetExpanded(bool expanded);

    [[nodiscard]] int Rows() const { return m_rows; }
    /// 0 and less show no browser.
    void SetRows(int rows);
    /// Errors: Overflow beyond 16 bits, and the rows stay.
    void AddRows(int difference);

    /// The entries of the list of libraries; the one shown stays.
    void ListLibraries(const std::vector<std::string>& names);
    /// Selects the entry that is equal to the name; a name without an entry is shown all the same.
    void ShowLibrary(const std::string& name);
    /// Add and Delete.
    void SetChangesEnabled(bool enabled);
    void SetDeleteEnabled(bool enabled);
    /// A disabled button does nothing.
    void PressDelete();
    void PressFunctions();

    CorvexEditport::Editport& Browser() { return *m_browser; }
    /// The heading and both row buttons.
    void SetLayoutEnabled(bool headerEnabled, bool rowsEnabled);

Q_SIGNALS:
    void ExpandedByUser();
    void LessPressed();
    void MorePressed();
    void AddPressed();
    void DeletePressed();
    void FunctionsPressed();
    /// The user pulled the scroll bar to this position.
    void ScrollBarMoved(int position);
    /// The user is about to look at the list of libraries.
    void ListWanted();
    /// The user took this entry of the list.
    void LibraryChosen(const QString& entry);
    /// In the browser, by index in file order.
    void Selected(std::int32_t index);
    void Opened(std::int32_t index);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildLibraryRow(const LibraryPanelKind& kind, QBoxLayout& column);
    void BuildBrowserRow(const LibraryPanelKind& kind, CorvexEditport::EditportFactory& editports,
                         QBoxLayout& column);
    void BuildRowButtons(const LibraryPanelKind& kind, QBoxLayout& column);
    void Connect();
    void Arrange();
    void ItemSelected(std::int32_t index) override { Q_EMIT Selected(index); }
    void ItemOpened(std::int32_t index) override { Q_EMIT Opened(index); }
    void Scrolled(const CorvexEditport::ScrollRange& range) override;

    int m_rowPixels;
    int m_rows = 1;
    SectionHeader* m_header;
    QWidget* m_content;
    QComboBox* m_libraries = nullptr;
    QToolButton* m_add = nullptr;
    QToolButton* m_delete = nullptr;
    QToolButton* m_functions = nullptr;
    QToolButton* m_less = nullptr;
    QToolButton* m_more = nullptr;
    QScrollBar* m_scrollBar = nullptr;
    CorvexEditport::Editport* m_browser = nullptr;
    QPointer<QWidget> m_browserWidget;
};

}  // namespace CorvexMaterial
