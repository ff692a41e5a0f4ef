#include "OutlinerDock.h"

#include "LibraryLinks.h"
#include "MaterialLink.h"
#include "MaterialNaming.h"
#include "Outliner.h"
#include "OutlinerView.h"
#include "ScenePane.h"
#include "SettingNames.h"
#include "ShapeHiding.h"
#include "StudioSettings.h"
#include "WindowMessages.h"

#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>

#include <algorithm>

namespace studio {

OutlinerDock::OutlinerDock(const Parts& parts)
    : m_parts(parts), m_dock(new QDockWidget(tr("Outliner"), &parts.window)),
      m_outliner(new Outliner(parts.scene.Scene(), parts.scene.Selected(), m_dock))
{
    Build();
    Connect();
}

// It leans on the scene, which goes before the window and its docks.
OutlinerDock::~OutlinerDock()
{
    delete m_outliner;
}

void OutlinerDock::Build()
{
    m_dock->setObjectName(QStringLiteral("outlinerDock"));
    m_dock->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    m_dock->setWidget(m_outliner);
    m_parts.window.addDockWidget(Qt::LeftDockWidgetArea, m_dock);
    const bool byMaterial = m_parts.settings.Number(kOutlinerSetting, 0) != 0;
    m_outliner->SetMode(byMaterial ? OutlinerModel::Mode::Materials : OutlinerModel::Mode::Shapes);
}

void OutlinerDock::Connect()
{
    OutlinerView& view = m_outliner->View();
    connect(m_outliner, &Outliner::ModeChosen, this, [this](OutlinerModel::Mode mode) {
        m_parts.settings.SetNumber(kOutlinerSetting, mode == OutlinerModel::Mode::Materials);
    });
    // A drag of a slider is one step, however often it changes the shapes.
    connect(&m_parts.link, &MaterialLink::ShapesChanged, m_outliner, &Outliner::ShowSoon);
    connect(&m_parts.history, &QUndoStack::indexChanged, m_outliner, &Outliner::ShowSoon);
    connect(&m_parts.scene, &ScenePane::ShapesReplaced, m_outliner, &Outliner::ShowSoon);
    connect(&view, &OutlinerView::HiddenWanted, &m_parts.hiding, &ShapeHiding::SetHidden);
    connect(&view, &OutlinerView::LockedWanted, &m_parts.hiding, &ShapeHiding::SetLocked);
    connect(&view, &OutlinerView::FrameWanted, &m_parts.scene, &ScenePane::FrameShapes);
    connect(&view, &OutlinerView::Hint, &m_parts.messages, &WindowMessages::Show);
    connect(&view, &OutlinerView::MenuWanted, this, &OutlinerDock::ShowMenu);
    connect(&view, &OutlinerView::ShareWanted, &m_parts.link,
            [this](const std::shared_ptr<StudioShape>& wearer, const ShapeList& shapes) {
                m_parts.link.Share(*wearer, shapes);
            });
    connect(&view, &OutlinerView::MaterialDropped, &m_parts.links,
            [this](const DroppedMaterial& dropped, const ShapeList& shapes) {
                m_parts.links.Put(shapes, dropped);
            });
    m_outliner->Model().SetLinkTexts([this](const StudioShape& shape) {
        const LibraryLink* link = LibraryLinks::LinkOf(shape);
        return LinkMark{link != nullptr,
                        link != nullptr && m_parts.links.StateOf(*link) != LinkState::Current,
                        m_parts.links.TextOf(shape)};
    });
    connect(&m_parts.links, &LibraryLinks::Changed, m_outliner, &Outliner::ShowSoon);
    // Queued: the editor has to be gone before the rows are others.
    connect(&m_outliner->Model(), &OutlinerModel::RenameWanted, &m_parts.naming,
            &MaterialNaming::Rename, Qt::QueuedConnection);
}

void OutlinerDock::AddTo(QMenu& view)
{
    QAction* dock = m_dock->toggleViewAction();
    dock->setText(tr("&Outliner"));
    dock->setShortcut(QKeySequence(tr("F3")));
    dock->setStatusTip(tr("Shows or hides the list of shapes and materials"));
    view.addAction(dock);
}

void OutlinerDock::ShowMenu(const QModelIndex& row, QPoint globalPosition)
{
    auto* menu = new QMenu(m_outliner);
    menu->setObjectName(QStringLiteral("outlinerMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const bool isSelected = m_outliner->View().selectionModel()->isSelected(row);
    const ShapeList shapes =
        isSelected ? m_outliner->View().SelectedShapes() : m_outliner->Model().ShapesOf(row);
    AddMaterialTo(*menu, row, shapes);
    menu->addSeparator();
    AddFlagsTo(*menu, shapes);
    menu->popup(globalPosition);
}

void OutlinerDock::AddMaterialTo(QMenu& menu, const QModelIndex& row, const ShapeList& shapes)
{
    const std::shared_ptr<StudioShape> wearer = m_outliner->Model().ShapesOf(row).front();
    QAction* apply = menu.addAction(tr("&Apply to Selected"), &m_parts.naming,
                                    [this, wearer] { m_parts.naming.ApplyToSelected(*wearer); });
    apply->setStatusTip(tr("Gives the selected shapes this material, which they share"));
    apply->setEnabled(!m_parts.scene.Selected().All().empty());
    menu.addAction(tr("Make &Unique"), &m_parts.naming,
                   [this, shapes] { m_parts.naming.MakeUnique(shapes); })
        ->setStatusTip(tr("Gives each of them a material of its own"));
    menu.addAction(tr("Select All &With This Material"), &m_parts.naming,
                   [this, wearer] { m_parts.naming.SelectSame({wearer}); })
        ->setStatusTip(tr("Selects all shapes that share it"));
    const QPersistentModelIndex named = row;
    menu.addAction(tr("&Rename Material"), QKeySequence(Qt::Key_F2), this, [this, named] {
        if (named.isValid()) {
            m_outliner->View().EditName(named);
        }
    });
    if (LibraryLinks::LinkOf(*wearer) != nullptr) {
        menu.addSeparator();
        m_parts.links.AddTo(menu, shapes);
    }
}

void OutlinerDock::AddFlagsTo(QMenu& menu, const ShapeList& shapes)
{
    ShapeHiding& hiding = m_parts.hiding;
    const bool areHidden =
        std::ranges::all_of(shapes, [](const auto& shape) { return shape->Flags().hidden; });
    const bool areLocked =
        std::ranges::all_of(shapes, [](const auto& shape) { return shape->Flags().locked; });
    menu.addAction(tr("&Frame"), &m_parts.scene,
                   [this, shapes] { m_parts.scene.FrameShapes(shapes); });
    menu.addAction(areHidden ? tr("S&how") : tr("&Hide"), &hiding,
                   [&hiding, shapes, areHidden] { hiding.SetHidden(shapes, !areHidden); });
    menu.addAction(tr("&Isolate"), &hiding, [&hiding, shapes] { hiding.Isolate(shapes); })
        ->setStatusTip(tr("Hides all other shapes"));
    menu.addAction(tr("Show A&ll"), &hiding, &ShapeHiding::ShowAll);
    menu.addAction(areLocked ? tr("Unloc&k") : tr("Loc&k"), &hiding,
                   [&hiding, shapes, areLocked] { hiding.SetLocked(shapes, !areLocked); });
}

}  // namespace studio
