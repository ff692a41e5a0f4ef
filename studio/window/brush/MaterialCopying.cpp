#include "MaterialCopying.h"

#include "MaterialLink.h"
#include "ScenePane.h"
#include "ShownText.h"
#include "ViewportWidget.h"
#include "WindowMessages.h"
#include <CorvexMaterial/Material.h>

#include <QMenu>

namespace studio {

MaterialCopying::MaterialCopying(const Parts& parts)
    : m_parts(parts), m_brush(parts.scene.Viewport(), parts.link, parts.scene.Selected(),
                              [this](QPoint at) { return m_parts.scene.ShapeAt(at); })
{
    connect(&m_brush, &MaterialBrush::ModeChanged, this, &MaterialCopying::FollowMode);
    connect(&m_brush, &MaterialBrush::Picked, this, [this](const auto& shape) {
        m_parts.messages.Check(m_parts.panel.CopyFieldToFormMaterial(shape->Material()),
                               tr("The material of the shape cannot be shown"));
    });
}

void MaterialCopying::AddTo(QMenu& menu)
{
    AddClipboardTo(menu);
    AddToolsTo(menu);
}

void MaterialCopying::AddClipboardTo(QMenu& menu)
{
    menu.addAction(tr("Cop&y Material"), QKeySequence::Copy, this,
                   [this] {
                       m_parts.messages.Check(m_parts.panel.CopyMaterial(),
                                              tr("The material was not copied"));
                   })
        ->setStatusTip(tr("Puts the material of the panel on the clipboard"));
    QAction* paste = menu.addAction(tr("&Paste Material"), QKeySequence::Paste, this, [this] {
        m_parts.messages.Check(m_parts.panel.PasteMaterial(), tr("The material was not pasted"));
    });
    paste->setStatusTip(tr("Gives the selected shapes what was copied of a material"));
    // Only the open menu looks: the clipboard may be that of a program that takes its time.
    connect(&menu, &QMenu::aboutToShow, paste, [this, paste] {
        const QString title = m_parts.panel.PastedTitle();
        paste->setEnabled(!title.isEmpty());
        paste->setText(title.isEmpty() ? tr("&Paste Material")
                                       : tr("&Paste %1").arg(MenuCaption(title)));
    });
    connect(&menu, &QMenu::aboutToHide, paste, [paste] { paste->setEnabled(true); });
}

void MaterialCopying::AddToolsTo(QMenu& menu)
{
    m_pick = menu.addAction(tr("Pick Material &from Shape"), QKeySequence(tr("Ctrl+I")), this,
                            [this] { m_pick->isChecked() ? m_brush.Pick() : m_brush.Stop(); });
    m_pick->setStatusTip(tr("Click a shape: the selected shapes take its material"));
    m_paint = menu.addAction(tr("&Brush Material"), QKeySequence(tr("Ctrl+B")), this,
                             [this] { m_paint->isChecked() ? StartPainting() : m_brush.Stop(); });
    m_paint->setStatusTip(tr("Click shapes or drag over them to give them the material"));
    m_pick->setCheckable(true);
    m_paint->setCheckable(true);
}

// Of the selected shape, with the name that it may have; else what the panel shows.
void MaterialCopying::StartPainting()
{
    if (const auto latest = m_parts.scene.Selected().Latest()) {
        m_brush.Brush(latest->Applied());
    } else if (const auto shown = m_parts.panel.ShownMaterial()) {
        m_brush.Brush(WholeMaterial(shown->material));
    } else {
        m_paint->setChecked(false);
    }
}

void MaterialCopying::FollowMode(MaterialBrush::Mode mode)
{
    m_pick->setChecked(mode == MaterialBrush::Mode::Pick);
    m_paint->setChecked(mode == MaterialBrush::Mode::Paint);
    if (mode == MaterialBrush::Mode::Pick) {
        m_parts.messages.SetLasting(
            m_parts.scene.Selected().All().empty()
                ? tr("Click a shape to show its material in the panel; Esc ends")
                : tr("Click a shape to give its material to the selected ones; Esc ends"));
    } else if (mode == MaterialBrush::Mode::Paint) {
        m_parts.messages.SetLasting(
            tr("Click shapes or drag over them to give them the material; Esc ends"));
    } else {
        m_parts.scene.TellSelection();
    }
}

}  // namespace studio
