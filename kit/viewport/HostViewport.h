#pragma once

#include "Camera.h"
#include "Navigation.h"
#include "StudioScene.h"
#include "ViewportWidget.h"
#include <CorvexMaterial/CorvexViewport.h>

#include <QObject>
#include <QPointer>

#include <memory>
#include <vector>

namespace studio {

class RenderService;

/// The studio's viewport as the control embeds it: shows one shape, seen from a little above and
/// the side, filling the picture. Dies with its widget.
class HostViewport : public QObject, public CorvexViewport::Viewport {
    Q_OBJECT

public:
    /// The service outlives the widget.
    HostViewport(RenderService& service, QWidget* parent);

    ViewportWidget& Widget() override;
    StudioScene& Scene() override { return m_scene; }
    /// Brings a shape that is newly shown into view. The user's turn and zoom stay.
    void Prepare() override;
    void Draw() override;
    void SetBackColor(CorvexMaterial::Colour colour) override;
    void SetListener(CorvexViewport::ViewportListener* listener) override;
    CorvexViewport::PixelSize Size() override;
    /// The raytracer is to render what is seen now: brings the scene up to date.
    void PrepareRaytracedPicture() override;
    void ShowBitmap(const std::string& path) override;
    void ResetDevice() override;

Q_SIGNALS:
    /// What it shows has changed.
    void Drawn();

private:
    RenderService& m_service;
    ViewportWidget* m_widget;  ///< owns this object
    StudioScene m_scene;
    Bounds m_framed;
    Camera m_home;
    CorvexViewport::ViewportListener* m_listener = nullptr;
};

class HostViewportFactory : public CorvexViewport::ViewportFactory {
public:
    /// The service outlives every viewport.
    explicit HostViewportFactory(RenderService& service) : m_service(service) {}

    CorvexViewport::Viewport* CreateViewport(QWidget* parent) override;
    /// Of those that live; null without one.
    [[nodiscard]] HostViewport* Latest() const { return m_latest; }
    /// Another view that is moved alike.
    void Join(ViewportWidget& widget);
    /// Of all its viewports, those that there are already too.
    void SetNavigation(NavigationPreset preset);

private:
    RenderService& m_service;
    NavigationPreset m_navigation = NavigationPreset::Studio;
    std::vector<QPointer<ViewportWidget>> m_widgets;
    QPointer<HostViewport> m_latest;
};

}  // namespace studio
