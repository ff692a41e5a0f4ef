#include "ViewMenu.h"

#include "NamedViews.h"
#include "ScenePane.h"
#include "ShownText.h"
#include "StandardViews.h"
#include "ViewportWidget.h"

#include <QInputDialog>
#include <QMenu>
#include <QUndoStack>

#include <algorithm>

namespace studio {
namespace {

class ViewsStep : public QUndoCommand {
public:
    ViewsStep(NamedViews& views, std::vector<NamedView> after, const QString& text)
        : QUndoCommand(text), m_views(views), m_before(views.All()), m_after(std::move(after))
    {
    }

    void undo() override { m_views.Set(m_before); }
    void redo() override { m_views.Set(m_after); }

private:
    NamedViews& m_views;
    std::vector<NamedView> m_before;
    std::vector<NamedView> m_after;
};

}  // namespace

ViewMenu::ViewMenu(const Parts& parts)
    : m_parts(parts), m_back(new QAction(tr("Pre&vious View"), &parts.scene.Viewport())),
      m_forward(new QAction(tr("&Next View"), &parts.scene.Viewport())),
      m_parallel(new QAction(tr("Parallel Pro&jection"), &parts.scene.Viewport()))
{
    ViewportWidget& viewport = m_parts.scene.Viewport();
    m_back->setShortcut(QKeySequence(tr("Alt+Left")));
    m_back->setStatusTip(tr("Goes back to how the scene was looked at before"));
    m_forward->setShortcut(QKeySequence(tr("Alt+Right")));
    m_forward->setStatusTip(tr("Takes going back to an earlier view back"));
    m_parallel->setShortcut(QKeySequence(Qt::KeypadModifier | Qt::Key_5));
    m_parallel->setStatusTip(tr("What is farther away is not smaller; for renderings too"));
    m_parallel->setCheckable(true);
    connect(m_back, &QAction::triggered, this,
            [this, &viewport] { viewport.SetCamera(m_visited.Back()); });
    connect(m_forward, &QAction::triggered, this,
            [this, &viewport] { viewport.SetCamera(m_visited.Forward()); });
    connect(m_parallel, &QAction::triggered, this, [this, &viewport](bool isParallel) {
        Camera camera = viewport.Camera();
        camera.lens = isParallel ? Lens::Parallel : Lens::Perspective;
        Show(camera);
    });
    connect(&viewport, &ViewportWidget::interactionFinished, this, [this, &viewport] {
        m_visited.Visit(viewport.Camera());
        EnableSteps();
    });
    connect(&viewport, &ViewportWidget::homeChanged, this, [this, &viewport] {
        m_visited.Begin(viewport.Camera());
        EnableSteps();
    });
    // Also by what is no step: a document that is opened.
    connect(&viewport, &ViewportWidget::positionText, this, &ViewMenu::EnableSteps);
    MakeStandardViews();
    EnableSteps();
}

void ViewMenu::EnableSteps()
{
    m_back->setEnabled(m_visited.CanGoBack());
    m_forward->setEnabled(m_visited.CanGoForward());
    m_parallel->setChecked(m_parts.scene.Viewport().Camera().lens == Lens::Parallel);
}

void ViewMenu::Show(const Camera& camera)
{
    m_parts.scene.Viewport().GoTo(camera);
}

void ViewMenu::AddTo(QMenu& menu)
{
    AddStandardViewsTo(menu);
    AddNamedViewsTo(*menu.addMenu(tr("Name&d Views")));
    menu.addActions({m_parallel, m_back, m_forward});
}

void ViewMenu::MakeStandardViews()
{
    for (const StandardView& view : StandardViews()) {
        auto* action = new QAction(view.Title(), &m_parts.scene.Viewport());
        action->setShortcut(
            QKeySequence((view.modifiers | Qt::KeypadModifier) | static_cast<Qt::Key>(view.key)));
        action->setStatusTip(tr("Looks straight at the scene from there"));
        connect(action, &QAction::triggered, this,
                [this, &view] { Show(view.Of(m_parts.scene.Viewport().Camera())); });
        m_standard << action;
    }
}

void ViewMenu::AddStandardViewsTo(QMenu& menu)
{
    QMenu* standard = menu.addMenu(tr("S&tandard Views"));
    standard->menuAction()->setStatusTip(tr("From the front, the side, above and below"));
    standard->addActions(m_standard);
}

void ViewMenu::AddNamedViewsTo(QMenu& menu)
{
    menu.menuAction()->setStatusTip(tr("Views that are kept with the document"));
    menu.setObjectName(QStringLiteral("namedViews"));
    connect(&menu, &QMenu::aboutToShow, this, [this, &menu] { ListViews(menu); });
    ListViews(menu);
}

void ViewMenu::ListViews(QMenu& menu)
{
    menu.clear();
    menu.addAction(tr("&Save View..."), this, &ViewMenu::AskForName)
        ->setStatusTip(tr("Keeps how the scene is looked at, under a name"));
    const auto& views = m_parts.scene.Views().All();
    if (views.empty()) {
        return;
    }
    QMenu* rename = menu.addMenu(tr("&Rename View"));
    rename->menuAction()->setStatusTip(tr("Gives a view another name"));
    QMenu* remove = menu.addMenu(tr("&Delete View"));
    remove->menuAction()->setStatusTip(tr("Forgets a view"));
    menu.addSeparator();
    for (const NamedView& view : views) {
        const QString name = MenuCaption(QString::fromStdString(view.name));
        menu.addAction(name, this, [this, view] { Show(view.camera); });
        rename->addAction(name + QStringLiteral("..."), this,
                          [this, view] { AskForOtherName(view); });
        remove->addAction(name, this, [this, view] { Remove(view); });
    }
}

void ViewMenu::SetViews(const std::vector<NamedView>& views, const QString& step)
{
    if (views != m_parts.scene.Views().All()) {
        m_parts.history.push(new ViewsStep(m_parts.scene.Views(), views, step));
    }
}

void ViewMenu::SaveView(const QString& name)
{
    std::vector<NamedView> views = m_parts.scene.Views().All();
    const NamedView saved{name.toStdString(), m_parts.scene.Viewport().Camera()};
    const auto former = std::ranges::find(views, saved.name, &NamedView::name);
    if (former != views.end()) {
        *former = saved;
    } else {
        views.push_back(saved);
    }
    SetViews(views, tr("Save view %1").arg(name));
}

void ViewMenu::AskForName()
{
    bool isAccepted = false;
    const QString name = QInputDialog::getText(
                             &m_parts.window, tr("Save View"), tr("&Name:"), QLineEdit::Normal,
                             tr("View %1").arg(m_parts.scene.Views().All().size() + 1), &isAccepted)
                             .trimmed();
    if (isAccepted && !name.isEmpty()) {
        SaveView(name);
    }
}

void ViewMenu::AskForOtherName(const NamedView& view)
{
    bool isAccepted = false;
    const QString name =
        QInputDialog::getText(&m_parts.window, tr("Rename View"), tr("&Name:"), QLineEdit::Normal,
                              QString::fromStdString(view.name), &isAccepted)
            .trimmed();
    if (!isAccepted || name.isEmpty() || name.toStdString() == view.name) {
        return;
    }
    std::vector<NamedView> views = m_parts.scene.Views().All();
    std::erase_if(views, [&](const NamedView& other) { return other.name == name.toStdString(); });
    if (const auto renamed = std::ranges::find(views, view); renamed != views.end()) {
        renamed->name = name.toStdString();
    }
    SetViews(views, tr("Rename view %1").arg(QString::fromStdString(view.name)));
}

void ViewMenu::Remove(const NamedView& view)
{
    std::vector<NamedView> views = m_parts.scene.Views().All();
    std::erase(views, view);
    SetViews(views, tr("Delete view %1").arg(QString::fromStdString(view.name)));
}

}  // namespace studio
