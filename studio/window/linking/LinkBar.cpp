#include "LinkBar.h"

#include "LibraryLinks.h"
#include "Selection.h"

#include <QBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QUndoStack>

namespace studio {

LinkBar::LinkBar(LibraryLinks& links, Selection& selection, const QUndoStack& history,
                 QWidget* parent)
    : QFrame(parent), m_links(links), m_selection(selection), m_text(new QLabel(this)),
      m_menu(new QMenu(this))
{
    setObjectName(QStringLiteral("linkBar"));
    m_text->setObjectName(QStringLiteral("lblLink"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    auto* button = new QPushButton(this);
    button->setObjectName(QStringLiteral("cmdLink"));
    button->setText(tr("Link"));
    button->setAccessibleName(tr("What can be done with the link"));
    button->setToolTip(tr("Takes what the library has now, or puts back what was changed here"));
    button->setMenu(m_menu);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(6, 4, 6, 4);
    row->addWidget(m_text, 1);
    row->addWidget(button);
    hide();
    links.FillWhenOpened(*m_menu);
    m_soon.setSingleShot(true);
    connect(&m_soon, &QTimer::timeout, this, &LinkBar::ShowNow);
    connect(&links, &LibraryLinks::Changed, this, &LinkBar::ShowSoon);
    connect(&selection, &Selection::Changed, this, &LinkBar::ShowSoon);
    connect(&history, &QUndoStack::indexChanged, this, &LinkBar::ShowSoon);
}

void LinkBar::ShowSoon()
{
    if (!m_soon.isActive()) {
        m_soon.start(0);
    }
}

void LinkBar::ShowNow()
{
    const auto shown = m_selection.Latest();
    const QString text = shown == nullptr ? QString() : m_links.TextOf(*shown);
    m_text->setText(text);
    setVisible(!text.isEmpty());
}

}  // namespace studio
