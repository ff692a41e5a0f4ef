#include "HelpWindow.h"

#include <QDesktopServices>
#include <QLineEdit>
#include <QListWidget>
#include <QSplitter>
#include <QTextBrowser>
#include <QVBoxLayout>

#include <algorithm>

namespace studio {
namespace {

constexpr QSize kHelpSize(860, 620);
constexpr int kTitlesWidth = 220;
constexpr int kTextMargin = 16;

}  // namespace

HelpWindow::HelpWindow(QWidget* parent)
    : QDialog(parent), m_pages(HelpPages()), m_search(new QLineEdit(this)),
      m_titles(new QListWidget(this)), m_text(new QTextBrowser(this))
{
    setObjectName(QStringLiteral("helpWindow"));
    setWindowTitle(tr("Help"));
    setAttribute(Qt::WA_DeleteOnClose);
    resize(kHelpSize);
    m_search->setObjectName(QStringLiteral("helpSearch"));
    m_search->setPlaceholderText(tr("Search the help"));
    m_search->setAccessibleName(tr("Search the help"));
    m_search->setClearButtonEnabled(true);
    m_titles->setObjectName(QStringLiteral("helpTitles"));
    m_titles->setAccessibleName(tr("Pages of the help"));
    m_text->setObjectName(QStringLiteral("helpText"));
    m_text->setAccessibleName(tr("Page"));
    m_text->setOpenLinks(false);
    m_text->document()->setDocumentMargin(kTextMargin);
    for (const HelpPage& page : m_pages) {
        m_titles->addItem(page.title);
    }

    auto* left = new QWidget(this);
    auto* column = new QVBoxLayout(left);
    column->setContentsMargins({});
    column->addWidget(m_search);
    column->addWidget(m_titles);
    auto* splitter = new QSplitter(this);
    splitter->addWidget(left);
    splitter->addWidget(m_text);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({kTitlesWidth, kHelpSize.width() - kTitlesWidth});
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(splitter);

    connect(m_titles, &QListWidget::currentRowChanged, this, &HelpWindow::ShowPage);
    connect(m_search, &QLineEdit::textChanged, this, &HelpWindow::Filter);
    connect(m_text, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
        if (link.isRelative()) {
            ShowTopic(link.path().section(u'.', 0, 0));
        } else {
            QDesktopServices::openUrl(link);
        }
    });
}

int HelpWindow::RowOf(const QString& topic) const
{
    const auto page = std::ranges::find(m_pages, topic, &HelpPage::topic);
    return page == m_pages.end() ? 0 : static_cast<int>(page - m_pages.begin());
}

void HelpWindow::ShowTopic(const QString& topic)
{
    m_search->clear();
    m_titles->setCurrentRow(RowOf(topic));
}

void HelpWindow::ShowPage(int row)
{
    if (row >= 0) {
        m_text->setMarkdown(m_pages[row].text);
    }
}

void HelpWindow::Filter(const QString& words)
{
    const QStringList wanted = words.split(u' ', Qt::SkipEmptyParts);
    int first = -1;
    for (int row = 0; row < m_pages.size(); ++row) {
        const bool found = std::ranges::all_of(wanted, [&](const QString& word) {
            return m_pages[row].text.contains(word, Qt::CaseInsensitive);
        });
        m_titles->item(row)->setHidden(!found);
        if (found && first < 0) {
            first = row;
        }
    }
    const QListWidgetItem* current = m_titles->currentItem();
    if (first >= 0 && (current == nullptr || current->isHidden())) {
        m_titles->setCurrentRow(first);
    }
}

}  // namespace studio
