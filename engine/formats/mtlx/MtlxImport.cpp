#include "DocumentFile.h"
#include "MtlxMaterials.h"
#include "MtlxSurface.h"
#include "ShapeNames.h"

#include <QCoreApplication>

#include <algorithm>

namespace studio {
namespace {

struct FoundSurface {
    const MtlxElement* material;
    const MtlxElement* shader;  ///< null when there is none
    std::string_view kind;
};

const MtlxElement* ChildOf(const MtlxElement& parent, std::string_view category)
{
    const auto found = std::ranges::find(parent.children, category, &MtlxElement::category);
    return found == parent.children.end() ? nullptr : &*found;
}

/// Up to 1.37 a material holds a reference to a kind of shader, since then it is a node that a
/// shader node is connected to.
FoundSurface SurfaceOf(const MtlxElement& material, MtlxGraph& graph)
{
    if (material.category == "material") {
        const MtlxElement* shader = ChildOf(material, "shaderref");
        return {&material, shader, shader == nullptr ? "" : shader->Attribute("node")};
    }
    const MtlxElement* input = material.Input("surfaceshader");
    const MtlxElement* shader = input == nullptr ? nullptr : graph.NodeOf(*input);
    return {&material, shader, shader == nullptr ? "" : std::string_view(shader->category)};
}

void CollectSurfaces(const MtlxElement& scope, MtlxGraph& graph, std::vector<FoundSurface>& found)
{
    for (const MtlxElement& child : scope.children) {
        if (child.category == "material" || child.category == "surfacematerial") {
            found.push_back(SurfaceOf(child, graph));
        } else if (child.category == "nodegraph") {
            CollectSurfaces(child, graph, found);
        }
    }
}

/// Of a document without materials: its shaders.
void CollectShaders(const MtlxElement& root, std::vector<FoundSurface>& found)
{
    for (const MtlxElement& child : root.children) {
        if (child.category == "standard_surface") {
            found.push_back({&child, &child, child.category});
        }
    }
}

std::string NameOfSurface(const MtlxElement& material, std::size_t number)
{
    const std::string_view shown = material.Attribute("uiname");
    return ReadableName(shown.empty() ? material.Name() : shown,
                        "Material " + std::to_string(number));
}

void NoteIncludes(const MtlxElement& root, Report& report)
{
    for (const MtlxElement& child : root.children) {
        if (child.category == "xi:include") {
            MaterialNotes(report, "")
                .Add("xi:include", Outcome::Dropped,
                     QT_TRANSLATE_NOOP("Interchange", "included documents are not read: %1"),
                     std::string(child.Attribute("href")));
        }
    }
}

}  // namespace

std::vector<NamedMaterial> MaterialsOfMtlx(const QByteArray& bytes, const std::string& path,
                                           Report& report)
{
    MtlxDocument document(bytes, path);
    MtlxGraph graph(document);
    std::vector<FoundSurface> surfaces;
    CollectSurfaces(document.Root(), graph, surfaces);
    if (surfaces.empty()) {
        CollectShaders(document.Root(), surfaces);
    }
    NoteIncludes(document.Root(), report);
    const std::string folder = FolderOfDocument(path);
    std::vector<NamedMaterial> materials;
    for (const FoundSurface& surface : surfaces) {
        const std::string name = NameOfSurface(*surface.material, materials.size() + 1);
        MaterialNotes notes(report, name);
        if (surface.kind != "standard_surface") {
            notes.Add("surfaceshader", Outcome::Dropped,
                      QT_TRANSLATE_NOOP("Interchange",
                                        "only a standard_surface can be read; this is: %1"),
                      std::string(surface.kind));
            continue;
        }
        materials.push_back({name, MaterialOfSurface(*surface.shader, graph, folder, notes)});
    }
    return materials;
}

ImportedModel ReadMtlx(const std::string& path)
{
    ImportedModel model;
    model.materials = MaterialsOfMtlx(ReadDocument(path), path, model.report);
    return model;
}

}  // namespace studio
