#include "PluginRig.h"

namespace CorvexTest {

PluginParameter Slider(float minimum, float maximum, float value)
{
    PluginParameter parameter;
    parameter.name = "Rows";
    parameter.kind = ParameterKind::Slider;
    parameter.minimum = minimum;
    parameter.maximum = maximum;
    parameter.defaultValue = value;
    return parameter;
}

PluginParameter NumberBox(float minimum, float maximum, float value)
{
    PluginParameter parameter = Slider(minimum, maximum, value);
    parameter.name = "Width";
    parameter.kind = ParameterKind::Number;
    parameter.step = 0.5F;
    parameter.decimals = 2;
    parameter.boxDefault = 1.25F;
    return parameter;
}

std::vector<PluginParameter> EveryKind()
{
    PluginParameter list{"Bond", ParameterKind::List, 0, 0, 0, {"Stack", "Running"}, 0, 1, 0, 0};
    PluginParameter tick{"Worn", ParameterKind::Tick, 0, 0, 0, {}, 0, 1, 0, 0};
    PluginParameter shape{"Shape", ParameterKind::Shape, 0, 0, 0, {}, 0, 2, 0, 0};
    PluginParameter simple{"Cut", ParameterKind::SimpleShape, 0, 0, 0, {}, 0, 1, 0, 0};
    PluginParameter colour{"Clay", ParameterKind::PackedColour, 0, 0, 0, {}, 0, 8388607, 0, 0};
    return {list, tick, Slider(0, 20, 7), NumberBox(0, 10, 2.5F), shape, simple, colour};
}

PluginRig::PluginRig()
{
    first->answer = EveryKind;
    table.records = {{}, {first, "First"}, {second, "Second"}};
    panel = std::make_unique<CorvexMaterial::PluginPanel>(trap, table, numbers, choosers, nullptr);
    panel->Add("First");
    panel->Add("Second");
    panel->resize(276, 320);
    panel->show();
    QObject::connect(panel.get(), &CorvexMaterial::PluginPanel::Edited, panel.get(),
                     [this] { ++edits; });
    QObject::connect(panel.get(), &CorvexMaterial::PluginPanel::PluginChosen, panel.get(),
                     [this] { ++chosen; });
}

void PluginRig::Pick(const char* plugin)
{
    Choose(Find<QComboBox>("cboPlugin"), QString::fromLatin1(plugin));
}

std::vector<std::string> PluginRig::VisibleRows() const
{
    std::vector<std::string> names;
    for (const QWidget* widget :
         panel->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (widget->isVisible() && widget->objectName() != "cboPlugin") {
            names.push_back(widget->objectName().toStdString());
        }
    }
    return names;
}

std::vector<float> PluginRig::Read()
{
    std::vector<float> values;
    panel->ReadValues(values);
    return values;
}

}  // namespace CorvexTest
