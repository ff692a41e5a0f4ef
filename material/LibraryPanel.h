#pragma once

#include "host/CorvexEditport.h"

#include <QWidget>

#include <cstdint>

class QAbstractButton;
class QCheckBox;
class QToolButton;

namespace CorvexMaterial {

class SectionHeader;

/// What differs between the two library panels.
struct LibraryPanelKind {
    CorvexEditport::BrowserKind browser;
    QString title;
    const char* headerName;
    const char* browserName;
    const char* lessName;
    const char* moreName;
    int rowTwips;
};

/// One library: a heading that folds, the host's browser of some rows' height, fewer and more rows.
class LibraryPanel : public QWidget {
    Q_OBJECT

public:
    LibraryPanel(const LibraryPanelKind& kind, CorvexEditport::EditportFactory& editports,
                 QWidget* parent);

    [[nodiscard]] bool IsExpanded() const;
    void SetExpanded(bool expanded);

    [[nodiscard]] int Rows() const { return m_rows; }
    /// 0 and less show no browser.
    void SetRows(int rows);
    /// Errors: Overflow beyond 16 bits, and the rows stay.
    void AddRows(int difference);

    CorvexEditport::Editport& Browser() { return *m_browser; }
    /// The heading and both buttons.
    void SetLayoutEnabled(bool headerEnabled, bool rowsEnabled);

Q_SIGNALS:
    void ExpandedByUser();
    void LessPressed();
    void MorePressed();

private:
    void Arrange();

    int m_rowTwips;
    int m_rows = 1;
    SectionHeader* m_header;
    QWidget* m_content;
    QToolButton* m_less;
    QToolButton* m_more;
    CorvexEditport::Editport* m_browser;
    QWidget* m_browserWidget;
};

}  // namespace CorvexMaterial
