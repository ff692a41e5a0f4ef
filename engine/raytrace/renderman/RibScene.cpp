#include "RibScene.h"

#include "CombinedAttributes.h"
#include "Quoting.h"
#include "RibMesh.h"
#include "RibStage.h"
#include "RibSurface.h"
#include "SurfaceCoverage.h"
#include "TriangleList.h"
#include "WrapCoordinates.h"

#include <set>

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

bool IsSeen(const FrameItem& item, RaytraceImages& images)
{
    return item.mesh != nullptr && !TrianglesWithArea(*item.mesh).empty() &&
           !IsTestedAway(item, images);
}

/// Before the world: inside of it a renderer need not take these requests. Each image once.
void WriteEnvironments(TextStream& out, const RaytraceScene& scene, RaytraceImages& images,
                       RibTextures& textures)
{
    std::set<std::string> made;
    for (const FrameItem& item : scene.frame.items) {
        if (IsSeen(item, images)) {
            const CorvexDB::udtMaterial& material = MaterialShown(item);
            const SurfaceImages layers = SurfacePixelsOf(item, material, images);
            WriteRibEnvironment(out, {material, layers, {}, scene.flat}, textures, made);
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

void WriteRibScene(TextStream& out, const RaytraceScene& scene, RaytraceImages& images)
{
    RibTextures textures(images);
    WriteRibHead(out, scene, scene.picture);
    WriteEnvironments(out, scene, images, textures);
    out << "WorldBegin\n";
    WriteRibLights(out, scene);
    WriteRibBackdrop(out, scene);
    for (std::size_t i = 0; i < scene.frame.items.size(); ++i) {
        if (IsSeen(scene.frame.items[i], images)) {
            WriteShape(out, scene, i, images, textures);
        }
    }
    out << "WorldEnd\n";
    out.Finish();
}

}  // namespace studio
