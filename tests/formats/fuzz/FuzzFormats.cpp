#include "EmbeddedPictures.h"
#include "GltfImport.h"
#include "ModelPacking.h"
#include "MtlMaterials.h"
#include "MtlxMaterials.h"
#include "ObjFile.h"
#include <CorvexMaterial/Status.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

namespace {

using studio::NamedMaterial;

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

using Reading = std::function<std::vector<NamedMaterial>(const QByteArray&, studio::Report&)>;

std::vector<NamedMaterial> ReadObj(const QByteArray& bytes, studio::Report& /*report*/)
{
    for (studio::ObjPart& part : studio::ParseObj(bytes.toStdString()).parts) {
        static_cast<void>(studio::Finished(std::move(part.mesh)));
    }
    return {};
}

std::vector<NamedMaterial> ReadAnswer(const QByteArray& bytes, studio::Report& /*report*/)
{
    studio::ImportedModel model = studio::UnpackModel(std::as_bytes(std::span(bytes)));
    studio::TakeOutPictures(model, "");
    return model.materials;
}

using NamedReading = std::pair<std::string_view, Reading>;

const NamedReading kReadings[] = {
    {"mtl",
     [](const auto& bytes, auto& report) {
         return studio::MaterialsOfMtl(bytes, "/nowhere/file.mtl", report);
     }},
    {"mtlx",
     [](const auto& bytes, auto& report) {
         return studio::MaterialsOfMtlx(bytes, "/nowhere/file.mtlx", report);
     }},
    {"gltf",
     [](const auto& bytes, auto& /*report*/) {
         return studio::ModelOfGltf(bytes, "/nowhere/file.gltf").materials;
     }},
    {"obj", ReadObj},
    {"answer", ReadAnswer},  // what the process that reads models hands back
};

}  // namespace

// Takes any bytes: a file that is refused is fine. Ends the process when what comes of it is no
// usable material.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto* const reading = std::ranges::find(kReadings, FUZZ_TARGET, &NamedReading::first);
    try {
        studio::Report report;
        if (!std::ranges::all_of(reading->second(bytes, report), IsUsable)) {
            std::abort();
        }
    } catch (const CorvexMaterial::Error&) {
        return 0;
    }
    return 0;
}
