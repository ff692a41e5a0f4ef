#pragma once

#include "SavedState.h"
#include "TouchedRows.h"
#include <CorvexMaterial/MaterialRecord.h>

#include <array>
#include <functional>
#include <string>
#include <vector>

class QCheckBox;
class QComboBox;
class QWidget;

namespace CorvexMaterial {

class AmountField;
class AttributePanel;

/// Every attribute of the material being edited, reached through its control. The raytrace record,
/// edited in a dialog of its own, is kept here.
class PanelAttributes : public AttributeTarget {
public:
    explicit PanelAttributes(AttributePanel& panel);

    std::string TextOf(Attribute attribute) override;
    void Show(Attribute attribute, const std::string& canonicalText) override;
    std::string SelectedPlugin() override;
    std::vector<std::string> PluginParameterTexts() override;
    std::vector<std::string> PluginParameterDefaults() override;
    void ShowPluginParameters(const std::vector<std::string>& texts) override;
    CustomFieldValues CustomFieldTexts() override;
    void ShowCustomFields(const CustomFieldValues& texts) override;
    [[nodiscard]] std::size_t PluginParameterCount() const;

    /// The material as the panel shows it, less the plug-in's values. An amount whose text is no
    /// whole number has the last one that it was.
    CorvexDB::udtMaterial Record();
    /// Shows every field. Errors: InvalidArgument for a list position outside its list, and for a
    /// placement or a raytrace amount that is no number; nothing has changed then.
    void ShowRecord(const CorvexDB::udtMaterial& record);

    [[nodiscard]] CorvexDB::ApplyMode ApplyRelative() const;
    /// Errors: InvalidArgument for an unknown mode.
    void ShowApplyRelative(CorvexDB::ApplyMode mode);
    [[nodiscard]] std::int32_t PreviewPrimitive() const { return m_previewPrimitive; }
    void ShowPreviewPrimitive(std::int32_t code) { m_previewPrimitive = code; }
    std::string& TextureLibrary() { return m_textureLibrary; }
    std::string& MaterialLibrary() { return m_materialLibrary; }
    CorvexDB::cdtRayTraceMaterialAttributes& RayTrace() { return m_kept.RayTrace; }

    /// What shows the attribute, or one of the custom fields; none for what is kept here.
    [[nodiscard]] std::vector<QWidget*> ControlsOf(const TouchedRow& row);

    /// The last whole number in the attribute's field.
    [[nodiscard]] std::int32_t Amount(Attribute attribute);

private:
    struct Binding {
        std::function<std::string()> text;
        std::function<void(const std::string&)> show;
        std::function<std::int32_t()> amount = {};
        std::vector<QWidget*> controls = {};
    };

    Binding& At(Attribute attribute) { return m_bindings[static_cast<std::size_t>(attribute)]; }
    /// With these the user's edit is told as one of the attribute.
    void BindAmount(Attribute attribute, AmountField& field);
    void BindFlag(Attribute attribute, QCheckBox& box);
    void BindList(Attribute attribute, QComboBox& list);
    void BindSurface();
    void BindAdvanced();
    void BindTextures();
    void BindPlacement();
    void BindKept();
    void BindOthers();

    AttributePanel& m_panel;
    CorvexDB::udtMaterial m_kept;  ///< what no control holds, as the raytrace record
    std::int32_t m_previewPrimitive = 2;
    std::string m_textureLibrary{FactoryText(Attribute::TextureLibrary)};
    std::string m_materialLibrary{FactoryText(Attribute::MaterialLibrary)};
    std::array<Binding, kAttributeCount> m_bindings;
};

}  // namespace CorvexMaterial
