#include "ShapeMenu.h"

#include "ScenePane.h"
#include "ShapeHiding.h"
#include "ViewMenu.h"
#include "ViewportWidget.h"

#include <QMenu>
#include <QShortcut>

#include <algorithm>

namespace studio {

ShapeMenu::ShapeMenu(const Parts& parts)
    : m_parts(parts),
      m_hide(Add(tr("&Hide"), Qt::Key_H, tr("Takes the selected shapes out of the picture"),
                 &ShapeMenu::Hide)),
      m_isolate(Add(tr("&Isolate"), Qt::SHIFT | Qt::Key_H, tr("Hides all but the selected shapes"),
                    &ShapeMenu::Isolate)),
      m_lock(Add(tr("&Lock"), {}, tr("The selected shapes cannot be selected in the view any more"),
                 &ShapeMenu::Lock)),
      m_showAll(Add(tr("Show All Shap&es"), Qt::CTRL | Qt::Key_H, tr("Brings all hidden shapes back"),
                    &ShapeMenu::ShowAll)),
      m_unlockAll(Add(tr("Unloc&k All Shapes"), {},
                      tr("All shapes can be selected in the view again"), &ShapeMenu::UnlockAll)),
      m_next(Add(tr("Select Ne&xt Shape"), Qt::Key_PageDown,
                 tr("With Ctrl it is added to the selection"), &ShapeMenu::SelectNext)),
      m_previous(Add(tr("Select Pre&vious Shape"), Qt::Key_PageUp,
                     tr("With Ctrl it is added to the selection"), &ShapeMenu::SelectPrevious))
{
    ViewportWidget& viewport = m_parts.scene.Viewport();
    for (const auto& [key, step] :
         {std::pair{Qt::Key_PageDown, Step::Next}, std::pair{Qt::Key_PageUp, Step::Previous}}) {
        auto* extend = new QShortcut(Qt::CTRL | key, &viewport);
        extend->setContext(Qt::WidgetShortcut);
        const Step taken = step;
        connect(extend, &QShortcut::activated, this,
                [this, taken] { SelectBeside(taken, Qt::ShiftModifier); });
    }
    connect(&viewport, &ViewportWidget::menuRequested, this, &ShapeMenu::ShowAt);
    connect(&m_parts.scene.Selected(), &Selection::Changed, this, &ShapeMenu::EnableActions);
    connect(&m_parts.hiding, &ShapeHiding::Changed, this, &ShapeMenu::EnableActions);
    connect(&m_parts.scene, &ScenePane::ShapesReplaced, this, &ShapeMenu::EnableActions);
    EnableActions();
}

/// Letters are the view's own, so that they can be typed elsewhere.
QAction* ShapeMenu::Add(const QString& text, const QKeySequence& key, const QString& tip,
                        void (ShapeMenu::*work)())
{
    auto* action = new QAction(text, &m_parts.scene.Viewport());
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setStatusTip(tip);
    connect(action, &QAction::triggered, this, work);
    m_parts.scene.Viewport().addAction(action);
    return action;
}

void ShapeMenu::EnableActions()
{
    const auto& shapes = m_parts.scene.Scene().All();
    const bool isAnySelected = !m_parts.scene.Selected().All().empty();
    for (QAction* action : {m_hide, m_isolate, m_lock}) {
        action->setEnabled(isAnySelected);
    }
    m_showAll->setEnabled(
        std::ranges::any_of(shapes, [](const auto& shape) { return shape->Flags().hidden; }));
    m_unlockAll->setEnabled(
        std::ranges::any_of(shapes, [](const auto& shape) { return shape->Flags().locked; }));
}

void ShapeMenu::AddTo(QMenu& edit)
{
    edit.addActions({m_next, m_previous});
    edit.addSeparator();
    edit.addActions({m_hide, m_isolate, m_showAll, m_lock, m_unlockAll});
}

void ShapeMenu::Hide()
{
    m_parts.hiding.SetHidden(m_parts.scene.Selected().All(), true);
}

void ShapeMenu::Isolate()
{
    m_parts.hiding.Isolate(m_parts.scene.Selected().All());
}

void ShapeMenu::ShowAll()
{
    m_parts.hiding.ShowAll();
}

void ShapeMenu::Lock()
{
    m_parts.hiding.SetLocked(m_parts.scene.Selected().All(), true);
}

void ShapeMenu::UnlockAll()
{
    m_parts.hiding.UnlockAll();
}

void ShapeMenu::SelectBeside(Step step, Qt::KeyboardModifiers modifiers)
{
    const auto shapes = m_parts.scene.Scene().Pickable();
    if (shapes.empty()) {
        return;
    }
    Selection& selection = m_parts.scene.Selected();
    const auto latest = std::ranges::find(shapes, selection.Latest());
    const bool isNext = step == Step::Next;
    auto place = static_cast<std::size_t>(latest - shapes.begin());
    if (latest == shapes.end()) {
        place = isNext ? 0 : shapes.size() - 1;
    } else {
        place = (place + (isNext ? 1 : shapes.size() - 1)) % shapes.size();
    }
    selection.Choose({shapes[place]}, modifiers);
}

void ShapeMenu::ShowAt(QPoint position)
{
    ScenePane& scene = m_parts.scene;
    const auto shape = scene.ShapeAt(position);
    if (shape != nullptr && !scene.Selected().Contains(*shape)) {
        scene.Selected().Set({shape});
    }
    auto* const shown = new QMenu(&scene.Viewport());
    QMenu& menu = *shown;
    menu.setObjectName(QStringLiteral("viewMenu"));
    menu.setAttribute(Qt::WA_DeleteOnClose);
    scene.AddFramingTo(menu);
    menu.addSeparator();
    if (shape != nullptr) {
        menu.addActions({m_hide, m_isolate, m_lock});
    }
    menu.addActions({m_showAll, m_unlockAll});
    menu.addSeparator();
    Q_EMIT MenuRequested(shape, menu);
    menu.addSeparator();
    scene.AddSelectionTo(menu);
    m_parts.views.AddStandardViewsTo(menu);
    menu.popup(scene.Viewport().mapToGlobal(position));
}

}  // namespace studio
