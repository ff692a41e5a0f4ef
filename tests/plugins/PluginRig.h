#pragma once

#include "dialogs/ErrorHandler.h"
#include "dialogs/Trap.h"
#include "plugins/PluginPanel.h"
#include "tests/support/CallLog.h"
#include "tests/support/Driving.h"
#include "tests/support/RecordingData.h"
#include "tests/support/RecordingPlatform.h"
#include "tests/support/RecordingViews.h"

#include <functional>

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
