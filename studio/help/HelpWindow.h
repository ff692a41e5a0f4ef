#pragma once

#include "HelpPages.h"

#include <QDialog>

class QLineEdit;
class QListWidget;
class QTextBrowser;

namespace studio {

/// The help: its pages on the left, narrowed by words that are looked for, one of them on the
/// right. Work goes on beside it.
class HelpWindow : public QDialog {
    Q_OBJECT

public:
    explicit HelpWindow(QWidget* parent);

    /// An unknown topic shows the first page.
    void ShowTopic(const QString& topic);

private:
    void ShowPage(int row);
    void Filter(const QString& words);
    [[nodiscard]] int RowOf(const QString& topic) const;

    QList<HelpPage> m_pages;
    QLineEdit* m_search;
    QListWidget* m_titles;
    QTextBrowser* m_text;
};

}  // namespace studio
