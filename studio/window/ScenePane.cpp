#include "ScenePane.h"

#include "MaterialNames.h"
#include "Picking.h"
#include "ShapeToolTip.h"
#include "StudioHost.h"
#include "ViewportWidget.h"
#include "WindowMessages.h"
#include <CorvexMaterial/Prompts.h>

#include <QMainWindow>
#include <QMenu>

namespace studio {

ScenePane::ScenePane(StudioHost& host, WindowMessages& messages, QMainWindow& window)
    : m_messages(messages), m_viewport(new ViewportWidget(host.Rendering(), &window))
{
    m_viewport->setMinimumSize(200, 160);
    m_viewport->setAccessibleName(tr("Scene"));
    m_viewport->setProperty("helpTopic", QStringLiteral("view"));
    m_scene.MarkSelection(&m_selection);
    m_viewport->SetSource(&m_scene);
    window.setCentralWidget(m_viewport);
    connect(m_viewport, &ViewportWidget::clicked, this,
            [this](QPoint position, Qt::KeyboardModifiers modifiers) {
                m_selection.Click(ShapeAt(position), modifiers);
            });
    connect(m_viewport, &ViewportWidget::doubleClicked, this, [this](QPoint position) {
        const auto shape = ShapeAt(position);
        FrameShapes(shape != nullptr ? StudioScene::Shapes{shape} : m_scene.All());
    });
    connect(m_viewport, &ViewportWidget::positionText, &messages, &WindowMessages::ShowPosition);
    connect(m_viewport, &ViewportWidget::failed, &messages, [&messages](const QString& message) {
        messages.Log(QStringLiteral("Viewport: ") + message);
        messages.Show(message);
    });
    new ShapeToolTip(
        *m_viewport, [this](QPoint position) { return ShapeAt(position); },
        [this](const std::shared_ptr<StudioShape>& shape) { return MaterialText(shape); },
        [&host] { return host.Get().customFields.GetCustomMaterialFieldNames(); });
    connect(&m_selection, &Selection::Changed, m_viewport, &ViewportWidget::Draw);
    connect(&m_selection, &Selection::Changed, this, &ScenePane::TellSelection);
    TellSelection();
}

// The viewport goes later, with the window.
ScenePane::~ScenePane()
{
    m_viewport->SetSource(nullptr);
    m_scene.MarkSelection(nullptr);
}

QString ScenePane::MaterialText(const std::shared_ptr<StudioShape>& shape) const
{
    const auto& identity = shape->Applied().identity;
    if (identity == nullptr) {
        return {};
    }
    const QString name = QString::fromStdString(identity->name);
    const std::size_t sharers = Sharers({shape}, m_scene.All()).size();
    return sharers == 1 ? name : tr("%1, shared by %2 shapes").arg(name).arg(sharers);
}

void ScenePane::TellSelection()
{
    const QString text = SelectionText();
    m_messages.SetLasting(text);
    m_viewport->setAccessibleDescription(text);
}

QString ScenePane::SelectionText() const
{
    const StudioScene::Shapes& shapes = m_selection.All();
    if (shapes.empty()) {
        return tr("Click a shape to select it");
    }
    const QString what = shapes.size() == 1 ? QString::fromStdString(shapes.front()->Name())
                                            : tr("%1 shapes").arg(shapes.size());
    const QString material = MaterialText(m_selection.Latest());
    return material.isEmpty() ? tr("%1 selected").arg(what)
                              : tr("%1 selected (%2)").arg(what, material);
}

void ScenePane::Show(StudioScene::Shapes shapes)
{
    m_selection.Clear();
    m_scene.SetShapes(std::move(shapes));
    m_viewport->Draw();
    Q_EMIT ShapesReplaced();
}

std::shared_ptr<StudioShape> ScenePane::ShapeAt(QPoint position) const
{
    const Ray ray = m_viewport->Camera().RayThrough(position, m_viewport->size());
    const auto hit = PickNearest(ray, m_scene.All());
    return hit ? hit->shape : nullptr;
}

void ScenePane::AddSelectionTo(QMenu& menu)
{
    menu.addAction(tr("Select &All"), QKeySequence::SelectAll, this,
                   [this] { m_selection.Set(m_scene.Pickable()); })
        ->setStatusTip(tr("Selects every shape that is neither hidden nor locked"));
    menu.addAction(tr("&Clear Selection"), QKeySequence(tr("Ctrl+Shift+A")), this,
                   [this] { m_selection.Clear(); })
        ->setStatusTip(tr("Selects no shape"));
}

void ScenePane::AddFramingTo(QMenu& menu)
{
    QAction* selection = menu.addAction(tr("Frame &Selection"), QKeySequence(tr("Ctrl+F")), this,
                                        [this] { FrameShapes(m_selection.All()); });
    selection->setStatusTip(tr("Brings the selected shapes into view"));
    EnableWithSelection(selection);
    QAction* all = menu.addAction(tr("Frame &All"), QKeySequence(tr("Ctrl+Shift+F")), this,
                                  [this] { FrameShapes(m_scene.All()); });
    all->setStatusTip(tr("Brings all shapes into view"));
    for (QAction* look : {selection, all}) {
        look->setProperty(CorvexMaterial::kUsableMeanwhileProperty, true);
    }
}

void ScenePane::EnableWithSelection(QAction* action)
{
    const auto follow = [this, action] { action->setEnabled(!m_selection.All().empty()); };
    connect(&m_selection, &Selection::Changed, action, follow);
    follow();
}

void ScenePane::FrameShapes(StudioScene::Shapes shapes)
{
    StudioScene scene;
    scene.SetShapes(std::move(shapes));
    m_viewport->SetCamera(scene.FramedBy(m_viewport->Camera()));
    m_viewport->Draw();
}

}  // namespace studio
