#pragma once

#include "StudioSettings.h"
#include <CorvexMaterial/CorvexDB.h>

namespace studio {

/// The custom field names that the user set up in the options; none at first.
class StudioCustomFields : public CorvexDB::CustomFields {
public:
    /// The settings outlive this object.
    explicit StudioCustomFields(const StudioSettings& settings) : m_settings(settings) {}
    std::vector<std::string> GetCustomMaterialFieldNames() override;

private:
    const StudioSettings& m_settings;
};

/// The renderer's shaders are its own, so what it can do depends on nothing but whether there is a
/// graphics context at all.
class StudioGraphics : public CorvexDB::GraphicsCapabilities {
public:
    explicit StudioGraphics(std::function<bool()> hasContext) : m_hasContext(std::move(hasContext))
    {
    }
    bool CanBumpmap() override { return m_hasContext(); }
    bool CanSpecularMap() override { return m_hasContext(); }
    bool CanEnvironmentMap() override { return m_hasContext(); }

private:
    std::function<bool()> m_hasContext;
};

}  // namespace studio
