#pragma once

#include "RaytraceRun.h"
#include "StudioProfile.h"
#include "StudioSettings.h"
#include <CorvexMaterial/CorvexDB.h>

namespace studio {

/// What the control asks about the application: settings name, folders, raytracer.
class StudioApplicationState : public CorvexDB::ApplicationState {
public:
    /// The settings outlive this object.
    StudioApplicationState(StudioProfile profile, const StudioSettings& settings);

    [[nodiscard]] const StudioProfile& Profile() const { return m_profile; }
    /// A model or a scene document; empty for the default scene.
    void SetOpenModel(const QString& path) { m_openModel = path; }

    std::string SettingsApplicationName() override;
    std::string LibraryFolder() override;
    bool RaytracerAvailable() override;
    CorvexDB::Raytracer SelectedRaytracer() override;
    std::string PovRayProgram() override;
    /// The selected raytracer, to be called without the control; its path is empty when it is not
    /// there.
    [[nodiscard]] RaytracerProgram Raytracer() const;
    std::int32_t AntialiasChoice() override;
    std::string ScenePath() override;
    std::vector<std::string> SearchFolders() override;
    void OpenWebSite(CorvexDB::WebSite site) override;

private:
    [[nodiscard]] QString ProgramOf(const CorvexMaterial::ProgramFacts& facts) const;

    StudioProfile m_profile;
    const StudioSettings& m_settings;
    QString m_openModel;
};

}  // namespace studio
