#pragma once

#include "CallLog.h"
#include "Driving.h"
#include "ErrorHandler.h"
#include "PluginPanel.h"
#include "RecordingData.h"
#include "RecordingPlatform.h"
#include "RecordingViews.h"
#include "Trap.h"

namespace CorvexTest {

using CorvexDB::ParameterKind;
using CorvexDB::PluginParameter;

/// A plug-in whose answer can be exchanged.
class FakePlugin : public CorvexDB::Plugin {
public:
    std::vector<PluginParameter> GetParameters() override { return answer(); }

    std::function<std::vector<PluginParameter>()> answer = [] {
        return std::vector<PluginParameter>{};
    };
};

[[nodiscard]] PluginParameter Slider(float minimum, float maximum, float value);
[[nodiscard]] PluginParameter NumberBox(float minimum, float maximum, float value);
/// One row of each kind; row i has the kind i + 1.
[[nodiscard]] std::vector<PluginParameter> EveryKind();

/// A plug-in panel in a window, its host in memory; the list offers "First" and "Second".
class PluginRig {
public:
    PluginRig();

    template <typename Widget>
    Widget& Find(const QString& name)
    {
        return FindIn<Widget>(*panel, name);
    }
    void Pick(const char* plugin);
    /// Names of the visible widgets of the rows, in no order.
    [[nodiscard]] std::vector<std::string> VisibleRows() const;
    [[nodiscard]] std::vector<float> Read();

    CallLog log;
    RecordingPrompts prompts{log};
    RecordingChoosers choosers{log};
    RecordingNumbers numbers{log};
    RecordingDiagnostics diagnostics{log};
    RecordingApplicationState state{log};
    RecordingPlugins table{log};
    CorvexMaterial::modCorvexGeneralErrorHandler handler{prompts, diagnostics, state};
    CorvexMaterial::Trap trap{handler};
    std::shared_ptr<FakePlugin> first = std::make_shared<FakePlugin>();
    std::shared_ptr<FakePlugin> second = std::make_shared<FakePlugin>();
    std::unique_ptr<CorvexMaterial::PluginPanel> panel;
    int edits = 0;
    int chosen = 0;
};

}  // namespace CorvexTest
