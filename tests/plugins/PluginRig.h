#pragma once

#include "Driving.h"
#include "ErrorHandler.h"
#include "PluginPanel.h"
#include "RecordingHost.h"
#include "RecordingPlatform.h"
#include "RecordingPlugin.h"
#include "Trap.h"
#include "Trial.h"

namespace CorvexTest {

using CorvexDB::ParameterKind;
using CorvexDB::PluginParameter;

[[nodiscard]] inline PluginParameter Slider(float minimum, float maximum, float value)
{
    return {"Rows", ParameterKind::Slider, minimum, maximum, 0, {}, 0, value, 0, 0};
}

[[nodiscard]] inline PluginParameter NumberBox(float minimum, float maximum, float value)
{
    return {"Width", ParameterKind::Number, minimum, maximum, 2, {}, 1.25F, value, 0, 0.5F};
}

/// One row of each kind; row i has the kind i + 1.
[[nodiscard]] inline Parameters EveryKind()
{
    return {{"Bond", ParameterKind::List, 0, 0, 0, {"Stack", "Running"}, 0, 1, 0, 0},
            {"Worn", ParameterKind::Tick, 0, 0, 0, {}, 0, 1, 0, 0},
            Slider(0, 20, 7),
            NumberBox(0, 10, 2.5F),
            {"Shape", ParameterKind::Shape, 0, 0, 0, {}, 0, 2, 0, 0},
            {"Cut", ParameterKind::SimpleShape, 0, 0, 0, {}, 0, 1, 0, 0},
            {"Clay", ParameterKind::PackedColour, 0, 0, 0, {}, 0, 8388607, 0, 0}};
}

/// A plug-in panel in a window, its host in memory; the list offers "First" and "Second".
class PluginRig {
public:
    PluginRig()
    {
        first->answer = EveryKind;
        host.plugins.records = {{}, {first, "First"}, {second, "Second"}};
        panel.Add("First");
        panel.Add("Second");
        panel.resize(276, 320);
        panel.show();
        QObject::connect(&panel, &CorvexMaterial::PluginPanel::Edited, [this] { ++edits; });
        QObject::connect(&panel, &CorvexMaterial::PluginPanel::PluginChosen, [this] { ++chosen; });
    }

    template <typename Widget>
    Widget& Find(const QString& name)
    {
        return FindIn<Widget>(panel, name);
    }
    void Pick(const char* plugin) { Choose(Find<QComboBox>("cboPlugin"), plugin); }
    /// Names of the visible widgets of the rows, in no order.
    [[nodiscard]] Texts VisibleRows() const
    {
        Texts names;
        for (const auto* widget :
             panel.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (widget->isVisible() && widget->objectName() != "cboPlugin") {
                names.push_back(widget->objectName().toStdString());
            }
        }
        return names;
    }
    [[nodiscard]] std::vector<float> Read()
    {
        std::vector<float> values;
        panel.ReadValues(values);
        return values;
    }

    CallLog log;
    RecordingHost host{log};
    RecordingPlatform platform{log};
    CorvexMaterial::modCorvexGeneralErrorHandler handler{platform.prompts, host.diagnostics,
                                                         host.applicationState};
    CorvexMaterial::Trap trap{handler};
    std::shared_ptr<RecordingPlugin> first = std::make_shared<RecordingPlugin>(log);
    std::shared_ptr<RecordingPlugin> second = std::make_shared<RecordingPlugin>(log);
    CorvexMaterial::Trial trial;
    CorvexMaterial::PluginPanel panel{trap,  host.plugins, host.numbers, platform.choosers,
                                      trial, nullptr};
    int edits = 0;
    int chosen = 0;
};

}  // namespace CorvexTest
