#pragma once

#include "host/CommandLine.h"

#include <cstdint>
#include <string>

namespace CorvexMaterial {

struct RenderManSettings {
    std::string renderer;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::string sceneFile;  ///< the name that the exporter returned
};

[[nodiscard]] CorvexDB::CommandLine RenderManCommandLine(const RenderManSettings& settings);

}  // namespace CorvexMaterial
