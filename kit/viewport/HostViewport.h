#pragma once

#include "Camera.h"
#include "StudioScene.h"
#include <CorvexMaterial/CorvexViewport.h>

#include <QObject>

#include <memory>

namespace studio {

class RenderService;
class ViewportWidget;

/// The studio's viewport as the control embeds it: shows one shape, seen from a little above and
/// the side, filling the picture. Dies with its widget.
class HostViewport : public QObject, public CorvexViewport::Viewport {
    Q_OBJECT

public:
    /// The service outlives the widget.
    HostViewport(RenderService& service, QWidget* parent);

    QWidget& Widget() override;
    CorvexSG::Scene& Scene() override { return m_scene; }
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

private:
    RenderService& m_service;
};

}  // namespace studio
