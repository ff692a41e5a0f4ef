#pragma once

#include "host/CorvexDB.h"
#include "host/CorvexSG.h"

namespace studio {

/// Raytraced pictures are not made by this studio yet; the attribute text travels with a material
/// all the same.
class StudioRaytrace : public CorvexDB::RaytraceServices {
public:
    /// One `Name=value` per attribute of the record, separated by ";", in the record's order.
    /// Numbers have a dot as their decimal sign and read back to the same value; a pattern colour
    /// is four of them separated by ",".
    std::string
    CombinedAttributes(const CorvexDB::cdtRayTraceMaterialAttributes& attributes) override;
    std::int32_t StartAndWait(const CorvexDB::CommandLine& commandLine) override;
    void RaytraceAbandoned() override {}
    void SaveAsJpeg(const std::string& bitmapPath, const std::string& jpegPath,
                    std::int32_t quality) override;
};

class StudioSceneExporter : public CorvexSG::SceneExporter {
public:
    std::string ExportRaytraceScene(const CorvexSG::RaytraceExport& request) override;
    std::vector<std::string> TexturesInUse(CorvexSG::Scene& scene) override;
};

}  // namespace studio
