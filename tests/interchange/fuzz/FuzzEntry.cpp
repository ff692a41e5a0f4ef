#include "tests/interchange/fuzz/FuzzEntry.h"

#include "host/Status.h"
#include "studio/import/EmbeddedPictures.h"
#include "studio/interchange/mtlx/MtlxMaterials.h"
#include "studio/interchange/wavefront/MtlMaterials.h"

#include <cmath>
#include <cstdlib>

namespace {

using studio::NamedMaterial;

QByteArray FuzzBytes(std::span<const std::byte> bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

bool IsPercent(std::int32_t amount)
{
    return amount >= 0 && amount <= 100;
}

bool IsUsable(const NamedMaterial& named)
{
    const auto& material = named.material;
    const auto& placement = material.Placement;
    const bool amounts = IsPercent(material.Ambient) && IsPercent(material.Emissive) &&
                         IsPercent(material.Specular) && IsPercent(material.Transparency);
    const bool placed = std::isfinite(placement.originU) && std::isfinite(placement.originV) &&
                        std::isfinite(placement.scaleU) && std::isfinite(placement.scaleV);
    const bool sliders =
        material.RayTrace.Roughness >= 1.0F && material.RayTrace.Roughness <= 10.0F &&
        material.RayTrace.Reflection >= 0.0F && material.RayTrace.Reflection <= 10.0F;
    return !named.name.empty() && amounts && placed && sliders;
}

}  // namespace

void FuzzWith(const FuzzReading& read)
{
    try {
        studio::Report report;
        for (const NamedMaterial& named : read(report)) {
            if (!IsUsable(named)) {
                std::abort();
            }
        }
    } catch (const CorvexMaterial::Error&) {
        return;
    }
}

void FuzzMtl(std::span<const std::byte> bytes)
{
    FuzzWith([&](studio::Report& report) {
        return studio::MaterialsOfMtl(FuzzBytes(bytes), "/nowhere/file.mtl", report);
    });
}

void FuzzMtlx(std::span<const std::byte> bytes)
{
    FuzzWith([&](studio::Report& report) {
        return studio::MaterialsOfMtlx(FuzzBytes(bytes), "/nowhere/file.mtlx", report);
    });
}

// The values are those of a library's text, which allows more; that it comes back is the promise.
void FuzzAnswer(std::span<const std::byte> bytes)
{
    try {
        studio::ImportedMaterials imported = studio::UnpackMaterials(FuzzBytes(bytes));
        studio::TakeOutPictures(imported, "");
    } catch (const CorvexMaterial::Error&) {
        return;
    }
}
