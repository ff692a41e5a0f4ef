#include "LargePreview.h"

#include "HostViewport.h"
#include "MaterialLink.h"
#include "RenderService.h"
#include "Selection.h"
#include "StudioScene.h"
#include "ViewportWidget.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>
#include <QRadioButton>

#include <utility>

namespace studio {
namespace {

constexpr QSize kSize(560, 560);
/// Clear of the menus.
constexpr QPoint kFromWindow(24, 64);
constexpr int kMargin = 6;
constexpr int kObject = 0;
constexpr int kShapes = 1;

Camera StartCamera()
{
    Camera camera;
    camera.yawDegrees = 32.0F;
    camera.pitchDegrees = 24.0F;
    camera.fovDegrees = 30.0F;
    return camera;
}

}  // namespace

LargePreview::LargePreview(const Parts& parts)
    : m_parts(parts), m_object(parts.object),
      m_dock(new QDockWidget(tr("Large Preview"), &parts.window)), m_what(new QButtonGroup(m_dock))
{
    Build();
    connect(m_what, &QButtonGroup::idClicked, this, &LargePreview::Reframe);
    connect(m_dock, &QDockWidget::visibilityChanged, this, &LargePreview::Show);
    connect(&m_parts.selection, &Selection::Changed, this, &LargePreview::Reframe);
    connect(&m_parts.link, &MaterialLink::ShapesChanged, this, &LargePreview::Draw);
    if (m_object != nullptr) {
        connect(m_object, &HostViewport::Drawn, this, &LargePreview::Draw);
    }
}

LargePreview::~LargePreview()
{
    if (m_view != nullptr) {
        m_view->SetSource(nullptr);
    }
}

void LargePreview::Build()
{
    auto* content = new QWidget(m_dock);
    content->setProperty("helpTopic", QStringLiteral("preview"));
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins({});
    column->setSpacing(0);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    const auto choice = [&](const char* name, const QString& text, int id) {
        auto* button = new QRadioButton(text, content);
        button->setObjectName(QLatin1String(name));
        m_what->addButton(button, id);
        row->addWidget(button);
    };
    choice("previewObject", tr("Preview &object"), kObject);
    choice("previewShapes", tr("Selected &shapes"), kShapes);
    row->addStretch();
    m_what->button(kObject)->setChecked(true);
    column->addLayout(row);
    m_dock->setObjectName(QStringLiteral("largePreviewDock"));
    m_dock->setWidget(content);
    m_parts.window.addDockWidget(Qt::LeftDockWidgetArea, m_dock);
    m_dock->setFloating(true);
    m_dock->resize(kSize);
    m_dock->hide();
}

void LargePreview::AddView()
{
    m_view = new ViewportWidget(m_parts.rendering, m_dock);
    m_view->setObjectName(QStringLiteral("largePreview"));
    m_view->setAccessibleName(tr("Large preview"));
    m_view->SetSource(this);
    m_dock->widget()->layout()->addWidget(m_view);
    connect(m_view, &ViewportWidget::doubleClicked, m_view, &ViewportWidget::ResetView);
    Q_EMIT ViewMade(*m_view);
}

void LargePreview::AddTo(QMenu& view)
{
    QAction* toggle = m_dock->toggleViewAction();
    toggle->setText(tr("La&rge Preview"));
    toggle->setShortcut(QKeySequence(tr("F6")));
    toggle->setStatusTip(tr("Shows the material on its object, or the selected shapes alone, as "
                            "large as you like"));
    view.addAction(toggle);
}

bool LargePreview::ShowsShapes() const
{
    return m_what->checkedId() == kShapes || m_object == nullptr;
}

void LargePreview::Fill(Frame& frame)
{
    if (!ShowsShapes()) {
        static_cast<FrameSource&>(m_object->Scene()).Fill(frame);
        return;
    }
    for (const auto& shape : m_parts.selection.All()) {
        frame.items.push_back(shape->Item());
    }
}

void LargePreview::Draw()
{
    if (m_view != nullptr && m_dock->isVisible()) {
        m_view->Draw();
    }
}

void LargePreview::Show()
{
    if (m_dock->isVisible() && m_dock->isFloating() && !std::exchange(m_isPlaced, true)) {
        m_dock->move(m_parts.window.geometry().topLeft() + kFromWindow);
    }
    Reframe();
}

void LargePreview::Reframe()
{
    if (!m_dock->isVisible()) {
        return;
    }
    if (m_view == nullptr) {
        AddView();
    }
    StudioScene shown;
    shown.SetShapes(ShowsShapes() ? m_parts.selection.All() : m_object->Scene().All());
    if (!shown.All().empty()) {
        m_view->SetHomeCamera(shown.FramedBy(StartCamera()));
    }
    m_view->Draw();
}

}  // namespace studio
