#pragma once

// The host's 3D viewport, embedded in the panel as the preview.

#include <CorvexMaterial/Colour.h>
#include <CorvexMaterial/CorvexSG.h>

#include <string>

class QWidget;

namespace CorvexViewport {

struct PixelSize {
    int width = 0;
    int height = 0;
};

/// Told by a viewport, on the user-interface thread.
class ViewportListener {
public:
    virtual ~ViewportListener() = default;
    /// A text for the position field of the host's status bar.
    virtual void PositionChanged(const std::string& text) = 0;
    /// The user finished turning, zooming or resetting the view.
    virtual void ViewChanged() = 0;
};

class Viewport {
public:
    virtual ~Viewport() = default;
    /// The control itself, a child of the parent given at creation and owned by it. Deleting the
    /// widget ends the viewport.
    virtual QWidget& Widget() = 0;
    virtual CorvexSG::Scene& Scene() = 0;
    /// Brings the scene up to date for the next drawing.
    virtual void Prepare() = 0;
    /// Asks for a new picture; may return before it is shown.
    virtual void Draw() = 0;
    virtual void SetBackColor(CorvexMaterial::Colour colour) = 0;
    /// The listener outlives the viewport or is replaced by null before.
    virtual void SetListener(ViewportListener* listener) = 0;
    /// Size of the picture in device pixels.
    virtual PixelSize Size() = 0;
    virtual void PrepareRaytracedPicture() = 0;
    /// Shows the image until the next `Draw`. Errors: FileFailed.
    virtual void ShowBitmap(const std::string& path) = 0;
    /// Drops and rebuilds what depends on the graphics device.
    virtual void ResetDevice() = 0;
};

class ViewportFactory {
public:
    virtual ~ViewportFactory() = default;
    /// Never null. The viewport lives as long as its widget.
    virtual Viewport* CreateViewport(QWidget* parent) = 0;
};

}  // namespace CorvexViewport
