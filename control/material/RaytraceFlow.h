#pragma once

#include "RaytracedPreview.h"
#include "RenderWait.h"
#include "modRaytrace.h"
#include <CorvexMaterial/Schema.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace CorvexMaterial {

class IMaterial;
class MaterialEditor;
class frmMaterialExtended;

/// What the panel does with a raytracer: the raytraced preview and the extended attributes. Throws
/// like the editor's own functions.
class RaytraceFlow : private RaytracedPreview {
public:
    RaytraceFlow(MaterialEditor& editor, Platform& platform, IMaterial& control, QWidget& widget);

    /// Shows the preview as the raytracer renders it, until the next drawing.
    void RaytracePreview();
    /// Opens the dialog of the extended attributes and takes its answer.
    void EditAttributes();

    /// A picture stands for the raytrace attributes in the primary layer.
    [[nodiscard]] bool SimulationTextureActive() const;
    /// What the attributes leave to be edited.
    void FollowAttributes();

private:
    struct Replaced {
        std::string texture;
        std::vector<std::pair<Attribute, std::string>> values;
    };

    CorvexViewport::PixelSize Prepare() override;
    void WithAttributes(const CorvexDB::cdtRayTraceMaterialAttributes& attributes,
                        const std::function<void(CorvexSG::Scene&)>& use) override;
    std::shared_ptr<CorvexSG::Shape> NewShape() override;

    void Take(const frmMaterialExtended& dialog);
    void ShowAsRendered(const std::string& texture);
    void PutBack(const std::string& texture);
    void Notice(const CorvexDB::cdtRayTraceMaterialAttributes& attributes);

    MaterialEditor& m_editor;
    Platform& m_platform;
    IMaterial& m_control;
    QWidget& m_widget;
    modRaytrace m_raytrace;
    RenderWait m_wait;
    /// What each simulation of this session took the place of, by its picture.
    std::map<std::string, Replaced> m_replaced;
};

}  // namespace CorvexMaterial
