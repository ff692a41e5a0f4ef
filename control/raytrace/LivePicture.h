#pragma once

#include "RaytraceProbe.h"
#include "TemporaryFolder.h"
#include <CorvexMaterial/Host.h>

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace CorvexMaterial {

class modRaytrace;

/// A viewport of the host with a shape of its own, which shows a material with its raytrace
/// attributes: at once as the host draws what stands in for them, and as a raytracer renders them
/// where it has done so, or does it unasked once nothing has changed for a moment.
class LivePicture : public QObject, private CorvexViewport::ViewportListener {
    Q_OBJECT

public:
    using Use = std::function<void(CorvexSG::Scene&, CorvexViewport::PixelSize)>;

    /// Fills the frame, which owns the viewport from then on. Without a shape it stays empty.
    LivePicture(Host& host, Platform& platform, modRaytrace& raytrace,
                std::shared_ptr<CorvexSG::Shape> shape, QWidget& frame);
    ~LivePicture() override;

    /// Materials differ in their raytrace attributes alone. Errors: those of the host.
    void Show(const CorvexDB::udtMaterial& material);
    /// Runs the use while the scene is ready for a raytracer and the shape carries the material as
    /// it is. Errors: those of the host and of the use.
    void WithMaterial(const CorvexDB::udtMaterial& material, const Use& use);
    /// Until the next `Show`, or until the user turns it. Errors: FileFailed.
    void ShowBitmap(const std::string& path);
    /// Renders no more unasked, and waits until that has ended.
    void LetBe();

Q_SIGNALS:
    void Shows(bool raytraced);

private:
    void PositionChanged(const std::string& /*text*/) override {}
    void ViewChanged() override;
    void Apply(const CorvexDB::udtMaterial& material);
    void Probe();
    void TakeProbed(const std::string& bitmap);
    void Keep(const std::string& bitmap);
    [[nodiscard]] std::string Kept() const;

    Host& m_host;
    modRaytrace& m_raytrace;
    CorvexViewport::Viewport& m_viewport;
    QPointer<QWidget> m_widget;
    std::shared_ptr<CorvexSG::Shape> m_shape;
    CorvexDB::udtMaterial m_material;
    CorvexDB::udtMaterial m_standIn;
    CorvexDB::cdtRayTraceMaterialAttributes m_probed;
    bool m_raytraced = false;
    bool m_probes = true;  ///< until it has failed
    TemporaryFolder m_folder{"pictures"};
    /// From this view, with their files.
    std::vector<std::pair<CorvexDB::cdtRayTraceMaterialAttributes, std::string>> m_kept;
    QTimer m_rest;
    RaytraceProbe m_probe;
};

}  // namespace CorvexMaterial
