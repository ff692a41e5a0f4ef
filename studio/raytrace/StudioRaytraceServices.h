#pragma once

#include "host/CorvexDB.h"

#include <functional>

namespace studio {

/// What the control asks of its host around a raytracer job.
class StudioRaytraceServices : public CorvexDB::RaytraceServices {
public:
    /// Told when a job ended before its raytracer was started.
    void SetAbandoned(std::function<void()> told) { m_abandoned = std::move(told); }

    /// See `AttributeText`.
    std::string
    CombinedAttributes(const CorvexDB::cdtRayTraceMaterialAttributes& attributes) override;
    /// No input is handled meanwhile; windows are repainted, timers and queued signals go on.
    std::int32_t StartAndWait(const CorvexDB::CommandLine& commandLine) override;
    void RaytraceAbandoned() override;
    void SaveAsJpeg(const std::string& bitmapPath, const std::string& jpegPath,
                    std::int32_t quality) override;

private:
    std::function<void()> m_abandoned;
};

}  // namespace studio
