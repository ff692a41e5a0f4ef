#pragma once

#include "SimulationPictures.h"
#include <CorvexMaterial/CorvexDB.h>
#include <CorvexMaterial/Processes.h>

#include <functional>

namespace studio {

/// What the control asks of its host around a raytracer job.
class StudioRaytraceServices : public CorvexDB::RaytraceServices {
public:
    /// Both outlive this object.
    StudioRaytraceServices(SimulationPictures& pictures, CorvexMaterial::ProcessStarter& processes)
        : m_pictures(pictures), m_processes(processes)
    {
    }

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
    std::string KeepSimulation(const std::string& jpegPath) override
    {
        return m_pictures.Keep(jpegPath);
    }

private:
    SimulationPictures& m_pictures;
    CorvexMaterial::ProcessStarter& m_processes;
    std::function<void()> m_abandoned;
};

}  // namespace studio
