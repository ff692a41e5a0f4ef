#include "PovRayScene.h"

#include "CombinedAttributes.h"
#include "PovRayIncludes.h"
#include "PovRayMesh.h"
#include "PovRayStage.h"
#include "PovRaySurface.h"
#include "Quoting.h"
#include "SurfaceCoverage.h"
#include "SurfaceImages.h"
#include "TriangleList.h"
#include <CorvexMaterial/Looks.h>

#include <map>
#include <set>

namespace studio {
namespace {

/// Behind this many surfaces nothing is told apart any more.
constexpr int kMostSurfacesInARow = 40;
/// Above this many triangles a mesh is taken for closed rather than looked at edge by edge.
constexpr std::size_t kMostTrianglesToSearch = 200'000;

bool HasOwnPlaces(const FrameItem& item)
{
    return item.coordinates == CorvexSG::CoordinateMode::FromWrap &&
           MaterialOf(item).Wrap == CorvexDB::WrapType::Flat;
}

/// Writes the shapes. A mesh that several of them share is written once.
class ShapeWriter {
public:
    ShapeWriter(TextStream& out, const RaytraceScene& scene, RaytraceImages& images)
        : m_out(out), m_scene(scene), m_images(images)
    {
    }

    void Write(std::size_t index)
    {
        const FrameItem& item = m_scene.frame.items[index];
        if (item.mesh == nullptr || !HasArea(*item.mesh) || IsTestedAway(item, m_images)) {
            return;
        }
        WriteComments(index);
        const std::string number = std::to_string(index + 1);
        const std::string mesh = MeshOf(item, number);
        const bool hides = HidesBackFaces(item);
        const std::string inside =
            DeclareSurface(m_out, "Surface_" + number, item,
                           hides ? ShapeInside::Hidden : ShapeInside::Met, m_images);
        WriteObject(item, mesh, "Surface_" + number, hides ? "Clear" : inside);
    }

private:
    void WriteComments(std::size_t index);
    [[nodiscard]] std::string MeshOf(const FrameItem& item, const std::string& number);
    void WriteObject(const FrameItem& item, const std::string& mesh, const std::string& surface,
                     const std::string& inside);
    [[nodiscard]] bool HidesBackFaces(const FrameItem& item);
    [[nodiscard]] bool HasArea(const Mesh& mesh);
    [[nodiscard]] bool HasNoBorder(const Mesh& mesh);

    TextStream& m_out;
    const RaytraceScene& m_scene;
    RaytraceImages& m_images;
    std::map<std::uint64_t, std::string> m_meshes;  ///< names by the mesh's id
    std::map<std::uint64_t, bool> m_hasArea;
    std::map<std::uint64_t, bool> m_closed;
};

void ShapeWriter::WriteComments(std::size_t index)
{
    const std::string name = index < m_scene.names.size() ? m_scene.names[index] : std::string();
    m_out << "\n// Shape " << index + 1 << ": " << CommentText(name) << '\n';
    const CorvexDB::udtMaterial& material = MaterialOf(m_scene.frame.items[index]);
    m_out << "// Attributes: " << AttributeText(material.RayTrace) << '\n';
    for (std::size_t i = 0; i < material.CustomFields.size(); ++i) {
        const std::string field =
            i < m_scene.customFieldNames.size() ? m_scene.customFieldNames[i] : std::string();
        if (!material.CustomFields[i].empty()) {
            m_out << "// Field " << i + 1 << ' ' << CommentText(field) << " = "
                  << CommentText(material.CustomFields[i]) << '\n';
        }
    }
}

std::string ShapeWriter::MeshOf(const FrameItem& item, const std::string& number)
{
    const std::string name = "Mesh_" + number;
    if (HasOwnPlaces(item)) {
        DeclareFlatWrappedMesh(m_out, name, item);
        return name;
    }
    const auto [known, isNew] = m_meshes.emplace(item.mesh->id, name);
    if (isNew) {
        DeclareMesh(m_out, name, *item.mesh);
    }
    return known->second;
}

/// POV-Ray draws both sides of a triangle. Where the inside cannot be seen it costs nothing to
/// leave it so.
bool ShapeWriter::HidesBackFaces(const FrameItem& item)
{
    if (MaterialOf(item).DoubleSided ||
        CorvexMaterial::PredefinedLookOf(MaterialOf(item).RayTrace) != nullptr) {
        return false;
    }
    if (IsSeenThrough(item, m_images)) {
        return true;
    }
    if (item.mesh->indices.size() / 3 > kMostTrianglesToSearch) {
        return false;
    }
    return !HasNoBorder(*item.mesh);
}

bool ShapeWriter::HasArea(const Mesh& mesh)
{
    const auto [known, isNew] = m_hasArea.try_emplace(mesh.id);
    if (isNew) {
        known->second = !TrianglesWithArea(mesh).empty();
    }
    return known->second;
}

bool ShapeWriter::HasNoBorder(const Mesh& mesh)
{
    const auto [known, isNew] = m_closed.try_emplace(mesh.id);
    if (isNew) {
        known->second = IsClosed(mesh);
    }
    return known->second;
}

void ShapeWriter::WriteObject(const FrameItem& item, const std::string& mesh,
                              const std::string& surface, const std::string& inside)
{
    m_out << "object { " << mesh << " material { " << surface << " }";
    if (!inside.empty()) {
        m_out << " interior_texture { " << inside << " }";
    }
    WriteMatrix(m_out, PovRayMatrix(item.worldFromMesh));
    m_out << " no_shadow }\n";
}

void WriteIncludes(TextStream& out, const RaytraceScene& scene, const RaytraceImages& images)
{
    std::set<std::string> files;
    for (const FrameItem& item : scene.frame.items) {
        if (const auto* look = CorvexMaterial::PredefinedLookOf(MaterialOf(item).RayTrace)) {
            files.insert("colors.inc");
            files.insert(std::string(look->povRay.include));
        }
    }
    if (files.empty()) {
        return;
    }
    PovRayIncludes includes(images.Beside());
    for (const std::string& file : files) {
        out << "#include " << PovRayString(includes.Named(file)) << '\n';
    }
}

void WriteHeader(TextStream& out, const RaytraceScene& scene, const RaytraceImages& images)
{
    out << "// Written by Corvex Studio.\n#version 3.7;\n"
           "global_settings { assumed_gamma 1.0 max_trace_level "
        << kMostSurfacesInARow << " }\n";
    WriteIncludes(out, scene, images);
    out << "#version 3.7;\n"
           "#declare Clear = texture { pigment { rgbt <0,0,0,1> } finish { ambient 0 diffuse 0 } "
           "}\n";
}

}  // namespace

void WritePovRayScene(TextStream& out, const RaytraceScene& scene, RaytraceImages& images)
{
    WriteHeader(out, scene, images);
    WriteCamera(out, scene);
    WriteLights(out, scene);
    WriteBackdrop(out, scene);
    WriteSurroundings(out, scene, images);
    ShapeWriter shapes(out, scene, images);
    for (std::size_t i = 0; i < scene.frame.items.size(); ++i) {
        shapes.Write(i);
    }
    out.Finish();
}

}  // namespace studio
