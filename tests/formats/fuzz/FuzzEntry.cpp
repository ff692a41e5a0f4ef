#include "FuzzEntry.h"

#include "EmbeddedPictures.h"
#include "GltfImport.h"
#include "ModelPacking.h"
#include "MtlMaterials.h"
#include "MtlxMaterials.h"
#include "ObjFile.h"
#include <CorvexMaterial/Status.h>

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

void FuzzGltf(std::span<const std::byte> bytes)
{
    FuzzWith([&](studio::Report&) {
        return studio::ModelOfGltf(FuzzBytes(bytes), "/nowhere/file.gltf").materials;
    });
}

void FuzzObj(std::span<const std::byte> bytes)
{
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    for (studio::ObjPart& part : studio::ParseObj(text).parts) {
        static_cast<void>(studio::Finished(std::move(part.mesh)));
    }
}

void FuzzAnswer(std::span<const std::byte> bytes)
{
    FuzzWith([&](studio::Report&) {
        studio::ImportedModel model = studio::UnpackModel(bytes);
        studio::TakeOutPictures(model, "");
        return model.materials;
    });
}
