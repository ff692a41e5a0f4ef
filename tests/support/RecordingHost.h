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
    explicit RecordingHost(CallLog& log);

    [[nodiscard]] CorvexMaterial::Host Get();
    /// Of the control made last; null when that is gone.
    [[nodiscard]] RecordingViewport* Viewport() const;

    RecordingApplicationState applicationState;
    RecordingDiagnostics diagnostics;
    RecordingGraphics graphics;
    RecordingMaterialLibrary materialLibrary;
    RecordingTextureLibrary textureLibrary;
    RecordingPlugins plugins;
    RecordingCustomFields customFields;
    RecordingRaytrace raytrace;
    RecordingExporter exporter;
    RecordingViewports viewports;
    RecordingEditports editports;
    RecordingNumbers numbers;
    RecordingSceneGraph sceneGraph;
};

}  // namespace CorvexTest
