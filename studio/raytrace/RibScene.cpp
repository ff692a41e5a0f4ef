#include "studio/raytrace/RibScene.h"

#include "studio/raytrace/AttributeText.h"
#include "studio/raytrace/Quoting.h"
#include "studio/raytrace/RibMesh.h"
#include "studio/raytrace/RibStage.h"
#include "studio/raytrace/RibSurface.h"
#include "studio/raytrace/SurfaceCoverage.h"
#include "studio/raytrace/TriangleList.h"
#include "studio/render/TextureWrap.h"

namespace studio {
namespace {

const CorvexDB::udtMaterial& MaterialShown(const FrameItem& item)
{
    static const CorvexDB::udtMaterial kDefault;
    return item.material ? *item.material : kDefault;
}

void WriteComments(TextStream& out, const RaytraceScene& scene,
                   const CorvexDB::udtMaterial& material)
{
    out << "# Attributes: " << AttributeText(material.RayTrace) << '\n';
    for (std::size_t i = 0; i < material.CustomFields.size(); ++i) {
        if (!material.CustomFields[i].empty()) {
            const std::string field =
                i < scene.customFieldNames.size() ? scene.customFieldNames[i] : std::string();
            out << "# Field " << i + 1 << ' ' << CommentText(field) << " = "
                << CommentText(material.CustomFields[i]) << '\n';
        }
    }
}

void WriteShape(TextStream& out, const RaytraceScene& scene, std::size_t index,
                const RaytraceImages& images, RibTextures& textures)
{
    const FrameItem& item = scene.frame.items[index];
    const CorvexDB::udtMaterial& material = MaterialShown(item);
    const std::string name = index < scene.names.size() ? scene.names[index] : std::string();
    out << "AttributeBegin\n";
    WriteComments(out, scene, material);
    out << "Attribute \"identifier\" \"string name\" [" << RibString(name) << "]\n"
        << "Sides " << (material.DoubleSided ? 2 : 1) << '\n';
    WriteRibTransform(out, item.worldFromMesh);
    const SurfaceImages layers = SurfacePixelsOf(item, material, images);
    const bool painted = WriteRibSurface(
        out, {material, layers, WrapTermsOf(item, material).crop, scene.flat}, textures);
    WriteRibMesh(out, item, material, painted ? RibCoordinates::InTile : RibCoordinates::Plain);
    out << "AttributeEnd\n";
}

}  // namespace

void WriteRibScene(TextStream& out, const RaytraceScene& scene, RaytraceImages& images,
                   const std::string& picture)
{
    RibTextures textures(images);
    WriteRibHead(out, scene, picture);
    out << "WorldBegin\n";
    WriteRibLights(out, scene);
    WriteRibBackdrop(out, scene);
    for (std::size_t i = 0; i < scene.frame.items.size(); ++i) {
        const FrameItem& item = scene.frame.items[i];
        if (item.mesh != nullptr && !TrianglesWithArea(*item.mesh).empty() &&
            !IsTestedAway(item, images)) {
            WriteShape(out, scene, i, images, textures);
        }
    }
    out << "WorldEnd\n";
    out.Finish();
}

}  // namespace studio
