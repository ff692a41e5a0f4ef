#pragma once

#include "host/MaterialRecord.h"
#include "material/SavedState.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace CorvexMaterial {

class AttributePanel;

/// Every attribute of the material being edited, reached through its control. What has no control
/// on the panel is carried in a record beside it.
class PanelAttributes : public AttributeTarget {
public:
    explicit PanelAttributes(AttributePanel& panel);

    std::string TextOf(Attribute attribute) override;
    void Show(Attribute attribute, const std::string& canonicalText) override;
    std::vector<std::string> PluginParameterTexts() override;
    std::vector<std::string> PluginParameterDefaults() override;
    void ShowPluginParameters(const std::vector<std::string>& texts) override;
    CustomFieldValues CustomFieldTexts() override;
    void ShowCustomFields(const CustomFieldValues& texts) override;

    /// The material as the panel shows it; an amount whose text is no whole number has its factory
    /// value.
    CorvexDB::udtMaterial Record();
    /// Shows every field. Errors: InvalidArgument for a list position outside its list, and nothing
    /// has changed then.
    void ShowRecord(const CorvexDB::udtMaterial& record);

    [[nodiscard]] CorvexDB::ApplyMode ApplyRelative() const;
    void ShowApplyRelative(CorvexDB::ApplyMode mode);
    [[nodiscard]] std::int32_t PreviewPrimitive() const { return m_previewPrimitive; }
    void ShowPreviewPrimitive(std::int32_t code) { m_previewPrimitive = code; }
    std::string& TextureLibrary() { return m_textureLibrary; }
    std::string& MaterialLibrary() { return m_materialLibrary; }

    /// The fields that no control of the panel shows.
    [[nodiscard]] CorvexDB::udtMaterial& Carried() { return m_carried; }
    [[nodiscard]] std::int32_t Amount(Attribute attribute);

private:
    struct Binding {
        std::function<std::string()> text;
        std::function<void(const std::string&)> show;
    };

    Binding& At(Attribute attribute) { return m_bindings[static_cast<std::size_t>(attribute)]; }
    void BindAmounts();
    void BindChoices();
    void BindTextures();
    void BindRaytrace();
    void BindRaytraceColours();
    void BindOthers();

    AttributePanel& m_panel;
    CorvexDB::udtMaterial m_carried;
    std::int32_t m_previewPrimitive = 2;
    std::string m_textureLibrary = "Gems.cvt";
    std::string m_materialLibrary = "Gems.cvm";
    std::array<Binding, kAttributeCount> m_bindings;
};

}  // namespace CorvexMaterial
