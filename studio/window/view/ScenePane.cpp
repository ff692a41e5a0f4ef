#include "ScenePane.h"

#include "HostViewport.h"
#include "MaterialNames.h"
#include "OptionsDialog.h"
#include "Picking.h"
#include "ShapeToolTip.h"
#include "StudioHost.h"
#include "ViewportWidget.h"
#include "WindowMessages.h"
#include <CorvexMaterial/Prompts.h>

#include <QMainWindow>
#include <QMenu>
#include <QShortcut>

namespace studio {

ScenePane::ScenePane(StudioHost& host, WindowMessages& messages, QMainWindow& window)
    : m_host(host), m_messages(messages), m_viewport(new ViewportWidget(host.Rendering(), &window))
{
    m_viewport->setMinimumSize(200, 160);
    m_viewport->setObjectName(QStringLiteral("sceneView"));
    m_viewport->setAccessibleName(tr("Scene"));
    m_viewport->setProperty("helpTopic", QStringLiteral("view"));
    m_viewport->SetUse(ViewUse::Select);
    host.Viewports().Join(*m_viewport);
    ApplyNavigation();
    m_scene.MarkSelection(&m_selection);
    m_viewport->SetSource(&m_scene);
    window.setCentralWidget(m_viewport);
    Connect();
    MakeActions();
    TellSelection();
}

void ScenePane::Connect()
{
    connect(m_viewport, &ViewportWidget::clicked, this,
            [this](QPoint position, Qt::KeyboardModifiers modifiers) {
                m_selection.Choose({ShapeAt(position)}, modifiers);
            });
    connect(m_viewport, &ViewportWidget::boxed, this,
            [this](QRectF box, BoxRule rule, Qt::KeyboardModifiers modifiers) {
                const PickBox pick{m_viewport->Camera(), m_viewport->size(), box, rule};
                m_selection.Choose(PickInBox(pick, m_scene.All()), modifiers);
            });
    connect(m_viewport, &ViewportWidget::escaped, &m_selection, &Selection::Clear);
    connect(m_viewport, &ViewportWidget::doubleClicked, this, [this](QPoint position) {
        const auto shape = ShapeAt(position);
        FrameShapes(shape != nullptr ? StudioScene::Shapes{shape} : m_scene.All());
    });
    connect(m_viewport, &ViewportWidget::positionText, &m_messages, &WindowMessages::ShowPosition);
    connect(m_viewport, &ViewportWidget::failed, this, [this](const QString& message) {
        m_messages.Log(QStringLiteral("Viewport: ") + message);
        m_messages.Show(message);
    });
    new ShapeToolTip(
        *m_viewport, [this](QPoint position) { return ShapeAt(position); },
        [this](const std::shared_ptr<StudioShape>& shape) { return MaterialText(shape); },
        [this] { return m_host.Get().customFields.GetCustomMaterialFieldNames(); },
        [this] { return HintOf(ReadNavigation(m_host.Settings())); });
    connect(&m_selection, &Selection::Changed, m_viewport, &ViewportWidget::Draw);
    connect(&m_selection, &Selection::Changed, this, &ScenePane::TellSelection);
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

void ScenePane::ApplyNavigation()
{
    m_host.Viewports().SetNavigation(ReadNavigation(m_host.Settings()));
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

QAction* ScenePane::MakeAction(const QString& text, const QKeySequence& key, const QString& tip,
                               const std::function<void()>& work)
{
    auto* action = new QAction(text, m_viewport);
    action->setShortcut(key);
    action->setStatusTip(tip);
    connect(action, &QAction::triggered, this, work);
    return action;
}

void ScenePane::AddKey(Qt::Key key, const std::function<void()>& work)
{
    connect(new QShortcut(key, m_viewport, {}, {}, Qt::WidgetShortcut), &QShortcut::activated, this,
            work);
}

void ScenePane::MakeActions()
{
    m_selectAll = MakeAction(tr("Select &All"), QKeySequence::SelectAll,
                             tr("Selects every shape that is neither hidden nor locked"),
                             [this] { m_selection.Set(m_scene.Pickable()); });
    m_clear = MakeAction(tr("&Clear Selection"), QKeySequence(tr("Ctrl+Shift+A")),
                         tr("Selects no shape; Esc in the view"), [this] { m_selection.Clear(); });
    m_frameSelection = MakeAction(tr("Frame &Selection"), QKeySequence(tr("Ctrl+F")),
                                  tr("Brings the selected shapes into view; F in the view"),
                                  [this] { FrameSelection(); });
    EnableWithSelection(m_frameSelection);
    m_frameAll =
        MakeAction(tr("Frame &All"), QKeySequence(tr("Ctrl+Shift+F")),
                   tr("Brings all shapes into view; Home in the view"), [this] { FrameAll(); });
    for (QAction* look : {m_frameSelection, m_frameAll}) {
        look->setProperty(CorvexMaterial::kUsableMeanwhileProperty, true);
    }
    AddKey(Qt::Key_F, [this] { FrameSelection(); });
    AddKey(Qt::Key_Home, [this] { FrameAll(); });
}

void ScenePane::AddSelectionTo(QMenu& menu)
{
    menu.addActions({m_selectAll, m_clear});
}

void ScenePane::AddFramingTo(QMenu& menu)
{
    menu.addActions({m_frameSelection, m_frameAll});
}

void ScenePane::FrameAll()
{
    FrameShapes(m_scene.All());
}

void ScenePane::FrameSelection()
{
    FrameShapes(m_selection.All().empty() ? m_scene.All() : m_selection.All());
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
    m_viewport->GoTo(scene.FramedBy(m_viewport->Camera()));
}

}  // namespace studio
