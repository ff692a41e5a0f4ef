#include "LivePicture.h"

#include "StandIn.h"
#include "modRaytrace.h"

#include <QFile>
#include <QLayout>

#include <algorithm>

namespace CorvexMaterial {

namespace {

constexpr std::chrono::milliseconds kRest{200};
constexpr std::int32_t kAntialias = 1;
constexpr std::size_t kMostKept = 100;

}  // namespace

LivePicture::LivePicture(Host& host, Platform& platform, modRaytrace& raytrace,
                         std::shared_ptr<CorvexSG::Shape> shape, QWidget& frame)
    : m_host(host), m_raytrace(raytrace), m_viewport(*host.viewports.CreateViewport(&frame)),
      m_widget(&m_viewport.Widget()), m_shape(std::move(shape)),
      m_probe(platform.processes, host.diagnostics)
{
    frame.layout()->addWidget(m_widget);
    m_viewport.Scene().ShowShape(m_shape);
    m_viewport.SetListener(this);
    m_rest.setSingleShot(true);
    m_rest.setInterval(kRest);
    connect(&m_rest, &QTimer::timeout, this, &LivePicture::Probe);
    connect(&m_probe, &RaytraceProbe::Rendered, this, &LivePicture::TakeProbed);
}

LivePicture::~LivePicture()
{
    if (m_widget != nullptr) {
        CleanUpQuietly(m_host.diagnostics, "a viewport keeps its listener",
                       [this] { m_viewport.SetListener(nullptr); });
    }
}

void LivePicture::Show(const CorvexDB::udtMaterial& material)
{
    m_material = material;
    if (const std::string kept = Kept(); !kept.empty()) {
        return ShowBitmap(kept);
    }
    m_rest.start();
    const CorvexDB::udtMaterial standIn = StandInFor(material);
    // Where the host would draw the same as before, a raytraced picture stays until the next one.
    if (!m_raytraced || !m_probes || standIn != m_standIn) {
        m_standIn = standIn;
        Apply(standIn);
        m_viewport.Prepare();
        m_viewport.Draw();
        m_raytraced = false;
        Q_EMIT Shows(false);
    }
}

void LivePicture::WithMaterial(const CorvexDB::udtMaterial& material, const Use& use)
{
    m_standIn = StandInFor(material);
    Apply(material);
    m_viewport.PrepareRaytracedPicture();
    use(m_viewport.Scene(), m_viewport.Size());
    Apply(m_standIn);
}

void LivePicture::ShowBitmap(const std::string& path)
{
    m_rest.stop();
    m_viewport.ShowBitmap(path);
    m_raytraced = true;
    Q_EMIT Shows(true);
}

void LivePicture::LetBe()
{
    m_rest.stop();
    m_probe.End();
}

void LivePicture::ViewChanged()
{
    m_kept.clear();
    m_raytraced = false;
    m_rest.start();
    Q_EMIT Shows(false);
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

void LivePicture::Probe()
{
    if (!m_probes || m_probe.GoesOn()) {
        return;  // the end of one starts the next
    }
    m_probes = false;
    CleanUpQuietly(m_host.diagnostics, "no picture is rendered unasked", [this] {
        WithMaterial(m_material, [this](CorvexSG::Scene& scene, CorvexViewport::PixelSize size) {
            if (auto job = m_raytrace.PrepareUnasked(
                    {scene, CorvexSG::RaytraceView::Scene, size, kAntialias})) {
                m_probe.Start(std::move(job));
                m_probed = m_material.RayTrace;
                m_probes = true;
            }
        });
    });
}

void LivePicture::TakeProbed(const std::string& bitmap)
{
    m_probes = !bitmap.empty();
    if (m_probes && m_probed != m_material.RayTrace) {
        return Probe();
    }
    CleanUpQuietly(m_host.diagnostics, "a rendered picture is not shown", [&] {
        if (m_probes) {
            Keep(bitmap);
            ShowBitmap(bitmap);
        } else {
            Show(m_material);
        }
    });
}

void LivePicture::Keep(const std::string& bitmap)
{
    if (m_kept.size() == kMostKept) {
        m_kept.clear();
    }
    const std::string file = m_folder.FilePath(std::to_string(m_kept.size()) + ".bmp");
    QFile::remove(QString::fromStdString(file));
    if (QFile::copy(QString::fromStdString(bitmap), QString::fromStdString(file))) {
        m_kept.emplace_back(m_probed, file);
    }
}

std::string LivePicture::Kept() const
{
    const auto kept =
        std::ranges::find(m_kept, m_material.RayTrace, &decltype(m_kept)::value_type::first);
    return kept == m_kept.end() ? std::string() : kept->second;
}

}  // namespace CorvexMaterial
