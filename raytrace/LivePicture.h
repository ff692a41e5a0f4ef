#pragma once

#include "host/Host.h"

#include <functional>
#include <memory>
#include <string>

class QWidget;

namespace CorvexMaterial {

/// A viewport of the host with a shape of its own, which shows a material with its raytrace
/// attributes: at once as the host draws what stands in for them, later as a raytracer does.
class LivePicture {
public:
    /// Fills the frame, which owns the viewport from then on. Without a shape it stays empty.
    LivePicture(Host& host, std::shared_ptr<CorvexSG::Shape> shape, QWidget& frame);

    void Show(const CorvexDB::udtMaterial& material);
    /// Runs the use while the scene is ready for a raytracer and the shape carries the material as
    /// it is.
    void WithMaterial(const CorvexDB::udtMaterial& material,
                      const std::function<void(CorvexSG::Scene&, CorvexViewport::PixelSize)>& use);
    /// Until the next `Show`, or until the user turns it. Errors: FileFailed.
    void ShowBitmap(const std::string& path) { m_viewport.ShowBitmap(path); }

private:
    void Apply(const CorvexDB::udtMaterial& material);

    Host& m_host;
    CorvexViewport::Viewport& m_viewport;
    std::shared_ptr<CorvexSG::Shape> m_shape;
};

}  // namespace CorvexMaterial
