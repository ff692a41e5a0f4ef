#include "KeySheet.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace studio {
namespace {

constexpr QSize kSheetSize(520, 620);

/// A caption without the sign of its letter and without dots.
QString Plain(const QAction& action)
{
    QString text = action.text().section(u'\t', 0, 0);
    text.remove(QStringLiteral("..."));
    text.replace(QStringLiteral("&&"), QStringLiteral("\a"));
    return text.remove(u'&').replace(u'\a', u'&');
}

QString KeysOf(const QAction& action)
{
    QStringList keys;
    for (const QKeySequence& key : action.shortcuts()) {
        // Some desktops give F14 and the like, which no keyboard has.
        if (key[0].key() < Qt::Key_F13 || key[0].key() > Qt::Key_F35) {
            keys << key.toString(QKeySequence::NativeText);
        }
    }
    const QString told = action.text().section(u'\t', 1);
    if (!told.isEmpty()) {
        keys << told;
    }
    return keys.join(QStringLiteral(", "));
}

}  // namespace

KeySheet::KeySheet(QMainWindow& window) : QDialog(&window), m_keys(new QTreeWidget(this))
{
    setObjectName(QStringLiteral("keySheet"));
    setWindowTitle(tr("Keys and Mouse"));
    setAttribute(Qt::WA_DeleteOnClose);
    resize(kSheetSize);
    auto* search = new QLineEdit(this);
    search->setObjectName(QStringLiteral("keySearch"));
    search->setPlaceholderText(tr("Search"));
    search->setAccessibleName(tr("Search the keys"));
    search->setClearButtonEnabled(true);
    m_keys->setObjectName(QStringLiteral("keyList"));
    m_keys->setAccessibleName(tr("Keys and what they do"));
    m_keys->setHeaderLabels({tr("What it does"), tr("Keys")});
    m_keys->header()->setStretchLastSection(false);
    m_keys->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_keys->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_keys->setUniformRowHeights(true);
    for (const QAction* entry : window.menuBar()->actions()) {
        if (entry->menu() != nullptr) {
            AddMenu(*entry->menu(), Plain(*entry));
        }
    }
    m_keys->expandAll();

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    connect(search, &QLineEdit::textChanged, this, &KeySheet::Filter);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(search);
    layout->addWidget(m_keys);
    layout->addWidget(buttons);
}

void KeySheet::AddMenu(const QMenu& menu, const QString& title)
{
    auto* group = new QTreeWidgetItem({title});
    for (const QAction* action : menu.actions()) {
        if (action->menu() != nullptr) {
            AddMenu(*action->menu(), QStringLiteral("%1 > %2").arg(title, Plain(*action)));
        } else if (const QString keys = KeysOf(*action); !keys.isEmpty()) {
            group->addChild(new QTreeWidgetItem({Plain(*action), keys}));
        }
    }
    if (group->childCount() == 0) {
        delete group;
        return;
    }
    m_keys->insertTopLevelItem(m_keys->topLevelItemCount(), group);
}

void KeySheet::Filter(const QString& words)
{
    for (int row = 0; row < m_keys->topLevelItemCount(); ++row) {
        QTreeWidgetItem* group = m_keys->topLevelItem(row);
        bool any = false;
        for (int index = 0; index < group->childCount(); ++index) {
            QTreeWidgetItem* child = group->child(index);
            const bool found = child->text(0).contains(words, Qt::CaseInsensitive) ||
                               child->text(1).contains(words, Qt::CaseInsensitive);
            child->setHidden(!found);
            any = any || found;
        }
        group->setHidden(!any);
    }
}

}  // namespace studio
