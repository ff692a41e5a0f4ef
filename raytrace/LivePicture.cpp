#include "raytrace/LivePicture.h"

#include "raytrace/StandIn.h"

#include <QLayout>

namespace CorvexMaterial {

LivePicture::LivePicture(Host& host, std::shared_ptr<CorvexSG::Shape> shape, QWidget& frame)
    : m_host(host), m_viewport(*host.viewports.CreateViewport(&frame)), m_shape(std::move(shape))
{
    frame.layout()->addWidget(&m_viewport.Widget());
    m_viewport.Scene().ShowShape(m_shape);
}

void LivePicture::Show(const CorvexDB::udtMaterial& material)
{
    Apply(StandInFor(material));
    m_viewport.Prepare();
    m_viewport.Draw();
}

void LivePicture::WithMaterial(
    const CorvexDB::udtMaterial& material,
    const std::function<void(CorvexSG::Scene&, CorvexViewport::PixelSize)>& use)
{
    Apply(material);
    m_viewport.PrepareRaytracedPicture();
    use(m_viewport.Scene(), m_viewport.Size());
    Apply(StandInFor(material));
}

void LivePicture::Apply(const CorvexDB::udtMaterial& material)
{
    if (!m_shape) {
        return;
    }
    auto gathered = std::make_shared<CorvexSG::GatheredMaterial>();
    gathered->material = material;
    gathered->combinedRaytraceAttributes = m_host.raytrace.CombinedAttributes(material.RayTrace);
    CorvexSG::Scene& scene = m_viewport.Scene();
    m_shape->ApplyMaterialWrapped({std::move(gathered),
                                   scene,
                                   scene.RootGroup(),
                                   scene.CameraGroup(),
                                   {},
                                   {},
                                   false,
                                   {CorvexSG::CoordinateMode::FromWrap},
                                   {}});
}

}  // namespace CorvexMaterial
