#pragma once

#include <CorvexMaterial/CorvexCommon.h>
#include <CorvexMaterial/CorvexDB.h>
#include <CorvexMaterial/CorvexEditport.h>
#include <CorvexMaterial/CorvexSG.h>
#include <CorvexMaterial/CorvexViewport.h>

namespace CorvexMaterial {

/// Everything that the control calls. All of it outlives the control.
struct Host {
    CorvexDB::ApplicationState& applicationState;
    CorvexDB::Diagnostics& diagnostics;
    CorvexDB::GraphicsCapabilities& graphics;
    CorvexDB::MaterialLibrary& materialLibrary;
    CorvexDB::TextureLibrary& textureLibrary;
    CorvexDB::PluginTable& plugins;
    CorvexDB::CustomFields& customFields;
    CorvexDB::RaytraceServices& raytrace;
    CorvexSG::SceneExporter& exporter;
    CorvexViewport::ViewportFactory& viewports;
    CorvexEditport::EditportFactory& editports;
    CorvexCommon::NumericValidation& numbers;
};

}  // namespace CorvexMaterial
