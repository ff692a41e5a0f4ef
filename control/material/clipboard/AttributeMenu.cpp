#include "AttributeMenu.h"

#include "AttributePanel.h"
#include "ChannelPanel.h"
#include "ClipboardFlow.h"
#include "LibraryPanel.h"
#include "PanelForm.h"
#include "PreviewPanel.h"
#include "Trap.h"
#include <CorvexMaterial/PlainText.h>

#include <QAbstractSpinBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

#include <algorithm>

namespace CorvexMaterial {

namespace {

/// Of a text box, or of a number's; null of everything else.
QLineEdit* TextBoxIn(QWidget* widget)
{
    auto* const box = qobject_cast<QLineEdit*>(widget);
    return box == nullptr && qobject_cast<QAbstractSpinBox*>(widget) != nullptr
               ? widget->findChild<QLineEdit*>()
               : box;
}

}  // namespace

AttributeMenu::AttributeMenu(PanelForm& form, ClipboardFlow& clips, const Trap& trap,
                             ControlsOf controlsOf)
    : m_form(form), m_clips(clips), m_trap(trap), m_controlsOf(std::move(controlsOf))
{
    m_form.Picture().installEventFilter(this);
    WatchControls();
}

// Text boxes and lists take the event; everything else leaves it to the panel around it.
void AttributeMenu::WatchControls()
{
    for (const TouchedRow& row : RowsOfMaterial()) {
        for (QWidget* control : m_controlsOf(row)) {
            control->installEventFilter(this);
        }
    }
}

bool AttributeMenu::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ContextMenu) {
        return QObject::eventFilter(watched, event);
    }
    const auto& asked = *static_cast<QContextMenuEvent*>(event);
    auto* widget = static_cast<QWidget*>(watched);
    if (widget == &m_form.Picture()) {
        QWidget* const inside = widget->childAt(asked.pos());
        widget = inside != nullptr ? inside : widget;
    }
    bool isOpen = false;
    m_trap("context menu", [&] { isOpen = Open(widget, asked.globalPos()); });
    event->setAccepted(isOpen);
    return isOpen;
}

TouchedRows AttributeMenu::RowsAt(QWidget* widget) const
{
    TouchedRows rows = RowsOfMaterial();
    std::erase_if(rows, [&](const TouchedRow& row) {
        const auto controls = m_controlsOf(row);
        return std::ranges::find(controls, widget) == controls.end();
    });
    return rows;
}

std::vector<MaterialPiece> AttributeMenu::PiecesAt(QWidget* widget, QPoint global) const
{
    ChannelPanel& channels = m_form.Attributes().Channels();
    for (; widget != nullptr && widget != &m_form.Picture(); widget = widget->parentWidget()) {
        if (widget == &m_form.Materials() || widget == &m_form.Textures() ||
            widget == &m_form.Preview().Viewport().Widget()) {
            return {};
        }
        if (const auto* label = qobject_cast<QLabel*>(widget);
            label != nullptr && label->buddy() != nullptr) {
            widget = label->buddy();
        }
        if (const TouchedRows rows = RowsAt(widget); !rows.empty()) {
            std::vector<MaterialPiece> pieces = PiecesAround(rows);
            if (rows.front().attribute == Attribute::CustomFields) {
                pieces.front().title = widget->accessibleName();
            }
            return pieces;
        }
        if (widget == &channels) {
            return PiecesAround(channels.RowsOfTabAt(global));
        }
    }
    return PiecesAround({});
}

bool AttributeMenu::Open(QWidget* widget, QPoint global)
{
    const std::vector<MaterialPiece> pieces = PiecesAt(widget, global);
    if (pieces.empty()) {
        return false;
    }
    QLineEdit* const box = TextBoxIn(widget);
    auto* menu = box != nullptr ? box->createStandardContextMenu() : new QMenu(widget);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setObjectName(QStringLiteral("menuAttribute"));
    if (box != nullptr) {
        menu->addSeparator();
    }
    Add(*menu, pieces.front());
    if (pieces.size() > 1) {
        menu->addSeparator();
    }
    for (std::size_t outer = 1; outer < pieces.size(); ++outer) {
        Add(*menu->addMenu(PlainCaption(pieces[outer].title)), pieces[outer]);
    }
    menu->popup(global);
    return true;
}

void AttributeMenu::Add(QMenu& menu, const MaterialPiece& piece)
{
    const auto run = [this](auto command) {
        return [this, command] { m_trap("context menu", command); };
    };
    connect(menu.addAction(tr("Copy %1").arg(PlainCaption(piece.title))), &QAction::triggered, this,
            run([this, piece] { m_clips.Copy(piece); }));
    const auto pasted = m_clips.Pasted(piece);
    QAction* paste =
        menu.addAction(tr("Paste %1").arg(PlainCaption(pasted ? pasted->title : piece.title)));
    paste->setEnabled(pasted.has_value());
    connect(paste, &QAction::triggered, this, run([this, piece] { m_clips.Paste(piece); }));
    AddResets(menu, piece);
}

void AttributeMenu::AddResets(QMenu& menu, const MaterialPiece& piece)
{
    QAction* factory = menu.addAction(tr("Reset to &Default"));
    QAction* mine = menu.addAction(tr("Reset to &Mine"));
    mine->setEnabled(m_clips.Remembered(piece).has_value());
    AttributePanel& panel = m_form.Attributes();
    if (piece.kind == MaterialPiece::Kind::Whole) {
        connect(factory, &QAction::triggered, &panel, &AttributePanel::FactoryDefaultsPressed);
        connect(mine, &QAction::triggered, &panel, &AttributePanel::UserDefaultsPressed);
        return;
    }
    connect(factory, &QAction::triggered, this, [this, piece] {
        m_trap("context menu", [&] { m_clips.Make(m_clips.Factory(piece)); });
    });
    connect(mine, &QAction::triggered, this, [this, piece] {
        m_trap("context menu", [&] {
            if (const auto remembered = m_clips.Remembered(piece)) {
                m_clips.Make(*remembered);
            }
        });
    });
}

}  // namespace CorvexMaterial
