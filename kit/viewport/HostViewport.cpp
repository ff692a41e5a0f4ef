#include "HostViewport.h"

#include "MaterialDragging.h"
#include "QtRegularFile.h"
#include "RenderService.h"
#include <CorvexMaterial/Status.h>

#include <QShortcut>

namespace studio {

namespace {

Camera StartCamera()
{
    Camera camera;
    camera.yawDegrees = 32.0F;
    camera.pitchDegrees = 24.0F;
    camera.fovDegrees = 30.0F;
    return camera;
}

bool Same(const Bounds& left, const Bounds& right)
{
    // The control nudges its shape to have it drawn anew; that is no reason to move the camera.
    const float tolerance = 0.001F + 0.001F * right.Radius();
    return (left.minimum - right.minimum).length() < tolerance &&
           (left.maximum - right.maximum).length() < tolerance;
}

}  // namespace

HostViewport::HostViewport(RenderService& service, QWidget* parent)
    : m_service(service), m_widget(new ViewportWidget(service, parent)), m_home(StartCamera())
{
    setParent(m_widget);
    m_widget->SetSource(&m_scene);
    m_widget->setAccessibleName(tr("Preview"));
    m_widget->SetHomeCamera(m_home);
    connect(m_widget, &ViewportWidget::positionText, this, [this](const QString& text) {
        if (m_listener != nullptr) {
            m_listener->PositionChanged(text.toStdString());
        }
    });
    new MaterialDragging(*m_widget, [this](QPoint) {
        const auto& shapes = m_scene.All();
        return shapes.empty() ? std::nullopt
                              : std::optional(NamedMaterial{{}, shapes.front()->Material()});
    });
    connect(m_widget, &ViewportWidget::doubleClicked, m_widget, &ViewportWidget::ResetView);
    for (const Qt::Key key : {Qt::Key_F, Qt::Key_Home}) {
        connect(new QShortcut(key, m_widget, {}, {}, Qt::WidgetShortcut), &QShortcut::activated,
                m_widget, &ViewportWidget::ResetView);
    }
    connect(m_widget, &ViewportWidget::interactionFinished, this, [this] {
        if (m_listener != nullptr) {
            m_listener->ViewChanged();
        }
    });
}

ViewportWidget& HostViewport::Widget()
{
    return *m_widget;
}

void HostViewport::Prepare()
{
    const Bounds extent = m_scene.Extent();
    if (extent.Empty() || Same(extent, m_framed)) {
        return;
    }
    Camera view = m_widget->Camera();
    const float zoom = view.distance / m_home.distance;
    const bool moved = view != m_home;
    m_framed = extent;
    m_home = m_scene.FramedBy(StartCamera());
    m_widget->SetHomeCamera(m_home);
    if (moved) {
        view.target = m_home.target;
        view.distance = m_home.distance * zoom;
        m_widget->SetCamera(view);
    }
}

void HostViewport::Draw()
{
    Prepare();
    m_widget->Draw();
    Q_EMIT Drawn();
}

void HostViewport::SetBackColor(CorvexMaterial::Colour colour)
{
    m_widget->SetBackground(colour);
}

void HostViewport::SetListener(CorvexViewport::ViewportListener* listener)
{
    m_listener = listener;
}

CorvexViewport::PixelSize HostViewport::Size()
{
    const QSize size = m_widget->PictureSize();
    return {size.width(), size.height()};
}

void HostViewport::PrepareRaytracedPicture()
{
    Prepare();
    const Frame frame = m_widget->CurrentFrame();
    m_scene.SetView({frame.camera, frame.background, frame.backdrop, {frame.width, frame.height}});
}

void HostViewport::ShowBitmap(const std::string& path)
{
    m_widget->ShowPicture(CorvexMaterial::ReadPicture(QString::fromStdString(path)));
}

void HostViewport::ResetDevice()
{
    m_service.ResetDevice();
    m_widget->Draw();
}

CorvexViewport::Viewport* HostViewportFactory::CreateViewport(QWidget* parent)
{
    // Owned by its widget, which is owned by the parent.
    m_latest = new HostViewport(m_service, parent);
    Join(m_latest->Widget());
    return m_latest;
}

void HostViewportFactory::Join(ViewportWidget& widget)
{
    widget.SetNavigation(m_navigation);
    std::erase(m_widgets, nullptr);
    m_widgets.emplace_back(&widget);
}

void HostViewportFactory::SetNavigation(NavigationPreset preset)
{
    m_navigation = preset;
    for (const QPointer<ViewportWidget>& widget : m_widgets) {
        if (widget != nullptr) {
            widget->SetNavigation(preset);
        }
    }
}

}  // namespace studio
