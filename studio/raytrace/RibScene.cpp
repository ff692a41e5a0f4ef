#include "studio/raytrace/RibScene.h"

#include "studio/raytrace/AttributeText.h"
#include "studio/raytrace/CornerPlaces.h"
#include "studio/raytrace/PovRaySurface.h"
#include "studio/raytrace/Quoting.h"
#include "studio/raytrace/RibSurface.h"
#include "studio/raytrace/TriangleList.h"
#include "studio/render/Backdrop.h"
#include "studio/render/MaterialModel.h"
#include "studio/render/TextureWrap.h"

#include <algorithm>

namespace studio {
namespace {

const CorvexDB::udtMaterial& MaterialShown(const FrameItem& item)
{
    static const CorvexDB::udtMaterial kDefault;
    return item.material ? *item.material : kDefault;
}

void WriteVector(TextStream& out, const QVector3D& vector)
{
    out << vector.x() << ' ' << vector.y() << ' ' << vector.z();
}

/// RIB multiplies rows from the left.
void WriteTransform(TextStream& out, const QMatrix4x4& matrix)
{
    out << "ConcatTransform [";
    for (int i = 0; i < 16; ++i) {
        out << (i == 0 ? "" : " ") << matrix.constData()[i];
    }
    out << "]\n";
}

void WriteHead(TextStream& out, const RaytraceScene& scene, const std::string& picture)
{
    const Frame& frame = scene.frame;
    out << "##RenderMan RIB-Structure 1.1\n##Creator Corvex Studio\nversion 3.03\n"
        << "Display " << RibString(picture) << " \"file\" \"rgb\"\n"
        << "Format " << frame.width << ' ' << frame.height << " 1\n";
    if (scene.flat) {
        out << "Projection \"orthographic\"\n";
    } else {
        out << "Projection \"perspective\" \"float fov\" [" << frame.camera.fovDegrees << "]\n";
    }
    // The picture is light that has to be encoded; a power comes nearest.
    out << "PixelSamples 3 3\nExposure 1 2.2\n";
    // From our right-handed world to z into the screen.
    out << "Scale 1 1 -1\n";
    if (scene.flat) {
        out << "Translate 0 0 -5\n";
    } else {
        WriteTransform(out, frame.camera.View());
    }
}

void WriteDistantLight(TextStream& out, int number, const QVector3D& towards, float intensity)
{
    out << "LightSource \"distantlight\" " << number << " \"float intensity\" [" << intensity
        << "] \"point from\" [";
    WriteVector(out, towards);
    out << "] \"point to\" [0 0 0]\n";
}

void WriteLights(TextStream& out, const RaytraceScene& scene)
{
    out << "LightSource \"ambientlight\" 1 \"float intensity\" [1]\n";
    if (scene.flat) {
        WriteDistantLight(out, 2, {0.0F, 0.0F, 1.0F}, 1.0F);
        return;
    }
    const Camera& camera = scene.frame.camera;
    const QVector3D back = (camera.Eye() - camera.target).normalized();
    const auto world = [&](const Light& light) {
        return light.towards[0] * camera.Right() + light.towards[1] * camera.Up() +
               light.towards[2] * back;
    };
    WriteDistantLight(out, 2, world(kKeyLight), kKeyLight.intensity);
    WriteDistantLight(out, 3, world(kFillLight), kFillLight.intensity);
    WriteDistantLight(out, 4, camera.Up(), kSkyIntensity / 2.0F);
    WriteDistantLight(out, 5, -camera.Up(), -kSkyIntensity / 2.0F);
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

/// Flips and crop go into the coordinates; where an image repeats is up to the renderer.
QVector2D ImagePlace(const QVector2D& place, const WrapTerms& wrap)
{
    const QVector2D flipped(wrap.flip.x() * place.x() + wrap.flip.z(),
                            wrap.flip.y() * place.y() + wrap.flip.w());
    return {wrap.crop.x() + wrap.crop.z() * flipped.x(),
            wrap.crop.y() + wrap.crop.w() * flipped.y()};
}

void WriteMesh(TextStream& out, const FrameItem& item, const TriangleList& triangles)
{
    const Mesh& mesh = *item.mesh;
    out << "PointsPolygons [";
    for (std::size_t i = 0; i < triangles.size(); ++i) {
        out << (i == 0 ? "3" : " 3");
    }
    out << "]\n[";
    for (const Corners& corners : triangles) {
        out << corners[0] << ' ' << corners[1] << ' ' << corners[2] << ' ';
    }
    out << "]\n\"P\" [";
    for (const Vertex& vertex : mesh.vertices) {
        out << vertex.position[0] << ' ' << vertex.position[1] << ' ' << vertex.position[2] << ' ';
    }
    out << "]\n\"N\" [";
    for (const Vertex& vertex : mesh.vertices) {
        out << vertex.normal[0] << ' ' << vertex.normal[1] << ' ' << vertex.normal[2] << ' ';
    }
    const WrapTerms wrap = WrapTermsOf(item, MaterialShown(item));
    out << "]\n\"facevarying float[2] st\" [";
    for (const Corners& corners : triangles) {
        for (const QVector2D& place : CornerPlaces(mesh, corners, wrap)) {
            const QVector2D at = ImagePlace(place, wrap);
            out << at.x() << ' ' << at.y() << ' ';
        }
    }
    out << "]\n";
}

void WriteShape(TextStream& out, const RaytraceScene& scene, std::size_t index,
                RaytraceImages& images)
{
    const FrameItem& item = scene.frame.items[index];
    if (item.mesh == nullptr || IsTestedAway(item, images)) {
        return;
    }
    const TriangleList triangles = TrianglesWithArea(*item.mesh);
    if (triangles.empty()) {
        return;
    }
    const std::string name = index < scene.names.size() ? scene.names[index] : std::string();
    out << "AttributeBegin\n";
    WriteComments(out, scene, MaterialShown(item));
    out << "Attribute \"identifier\" \"string name\" [" << RibString(name) << "]\n"
        << "Sides " << (MaterialShown(item).DoubleSided ? 2 : 1) << '\n';
    WriteTransform(out, item.worldFromMesh);
    WriteRibSurface(out, item, SurfaceImagesOf(item, MaterialShown(item), images));
    WriteMesh(out, item, triangles);
    out << "AttributeEnd\n";
}

}  // namespace

void WriteRibScene(TextStream& out, const RaytraceScene& scene, RaytraceImages& images,
                   const std::string& picture)
{
    const BackdropColours backdrop = BackdropColoursOf(scene.frame.background, Backdrop::Flat);
    WriteHead(out, scene, picture);
    out << "Imager \"background\" \"color bgcolor\" [";
    WriteVector(out, {LinearFromEncoded(backdrop.top[0]), LinearFromEncoded(backdrop.top[1]),
                      LinearFromEncoded(backdrop.top[2])});
    out << "]\nWorldBegin\n";
    WriteLights(out, scene);
    for (std::size_t i = 0; i < scene.frame.items.size(); ++i) {
        WriteShape(out, scene, i, images);
    }
    out << "WorldEnd\n";
    out.Finish();
}

}  // namespace studio
