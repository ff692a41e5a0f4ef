#pragma once

#include <CorvexMaterial/CorvexViewport.h>
#include <CorvexMaterial/MaterialRecord.h>

#include <functional>
#include <memory>

namespace CorvexMaterial {

/// The preview as the raytracer is given it.
class RaytracedPreview {
public:
    virtual ~RaytracedPreview() = default;
    /// Makes the viewport ready for a raytraced picture and returns the picture's size in pixels.
    virtual CorvexViewport::PixelSize Prepare() = 0;
    /// Runs the use while the preview shape carries the edited material with these attributes;
    /// afterwards, after an error too, it carries the panel's again.
    virtual void WithAttributes(const CorvexDB::cdtRayTraceMaterialAttributes& attributes,
                                const std::function<void(CorvexSG::Scene&)>& use) = 0;
    /// Another shape like the preview's; null while there is none.
    virtual std::shared_ptr<CorvexSG::Shape> NewShape() = 0;
};

}  // namespace CorvexMaterial
