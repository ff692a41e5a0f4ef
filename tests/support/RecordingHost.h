#pragma once

#include "RecordingData.h"
#include "RecordingScene.h"
#include "RecordingViews.h"
#include <CorvexMaterial/Host.h>

namespace CorvexTest {

/// A complete host in memory. Every operation enters the log before it does anything, so a planned
/// failure leaves it undone.
class RecordingHost {
public:
    explicit RecordingHost(CallLog& log) : m_log(log) {}

    [[nodiscard]] CorvexMaterial::Host Get()
    {
        return {applicationState, diagnostics, graphics, materialLibrary, textureLibrary, plugins,
                customFields,     raytrace,    exporter, viewports,       editports,      numbers};
    }
    /// Of the control made last; null when that is gone.
    [[nodiscard]] RecordingViewport* Viewport() const
    {
        for (auto i = viewports.made.rbegin(); i != viewports.made.rend(); ++i) {
            if (*i != nullptr && (*i)->objectName() == "dfvMaterialViewport") {
                return dynamic_cast<RecordingViewport*>(i->data());
            }
        }
        return nullptr;
    }

private:
    CallLog& m_log;

public:
    RecordingApplicationState applicationState{m_log};
    RecordingDiagnostics diagnostics{m_log};
    RecordingGraphics graphics{m_log};
    RecordingMaterialLibrary materialLibrary{m_log};
    RecordingTextureLibrary textureLibrary{m_log};
    RecordingPlugins plugins{m_log};
    RecordingCustomFields customFields{m_log};
    RecordingRaytrace raytrace{m_log};
    RecordingExporter exporter{m_log};
    RecordingViewports viewports{m_log};
    RecordingEditports editports{m_log};
    RecordingNumbers numbers{m_log};
    RecordingSceneGraph sceneGraph{m_log};
};

}  // namespace CorvexTest
