#include "ModelShapes.h"

#include "ExportedProperties.h"
#include "FileWriting.h"
#include "MaterialName.h"
#include "UniqueNames.h"
#include "WrapCoordinates.h"
#include "WrappedMesh.h"

#include <QCoreApplication>

#include <cmath>
#include <map>
#include <span>

namespace studio {
namespace {

std::string InterchangeTr(const char* text)
{
    return QCoreApplication::translate("Interchange", text).toStdString();
}

/// Equal materials of one name are one, and so are those that shapes have in common.
class SceneMaterials {
public:
    explicit SceneMaterials(std::vector<NamedMaterial>& materials) : m_materials(materials) {}

    std::size_t IndexOf(const AppliedMaterial& applied)
    {
        const std::pair key{applied.gathered.get(), applied.identity.get()};
        const auto [known, isNew] = m_byPointer.try_emplace(key);
        if (isNew) {
            known->second = IndexOf(applied, applied.gathered->material);
        }
        return known->second;
    }

private:
    std::size_t IndexOf(const AppliedMaterial& applied, CorvexDB::udtMaterial material)
    {
        if (applied.coordinates == CorvexSG::CoordinateMode::FromWrap) {
            // The tiles of a wrap are in the coordinates that it makes.
            material.Wrap = CorvexDB::WrapType::Spherical;
        }
        // As are turned and resized ones.
        material.TextureRotation = 0.0F;
        material.TextureWidth = 0.0F;
        material.TextureHeight = 0.0F;
        material.Projection = {};
        const std::string name =
            applied.identity == nullptr ? DescriptiveName(material) : applied.identity->name;
        const auto [known, isNew] =
            m_byContent.try_emplace({name, JsonOfMaterial(material, "/")}, m_materials.size());
        if (isNew) {
            m_materials.push_back({m_names.Take(name), std::move(material)});
        }
        return known->second;
    }

    std::vector<NamedMaterial>& m_materials;
    UniqueNames m_names;
    std::map<std::pair<const void*, const void*>, std::size_t> m_byPointer;
    std::map<std::pair<std::string, std::string>, std::size_t> m_byContent;
};

/// What wrapped coordinates depend on, beside the mesh.
std::vector<float> NumbersOf(const WrapTerms& terms)
{
    std::vector<float> numbers(terms.wrapFromMesh.constData(), terms.wrapFromMesh.constData() + 16);
    numbers.insert(numbers.end(), terms.wrapNormalFromMesh.constData(),
                   terms.wrapNormalFromMesh.constData() + 9);
    for (const TilePlane& tile : terms.tiles) {
        numbers.insert(numbers.end(), {tile.across.x(), tile.across.y(), tile.down.x(),
                                       tile.down.y(), tile.offset.x(), tile.offset.y()});
    }
    numbers.push_back(static_cast<float>(terms.kind));
    return numbers;
}

bool LeavesOneTile(const Mesh& mesh)
{
    constexpr float kOnEdge = 1.0e-4F;
    return std::ranges::any_of(mesh.vertices, [](const Vertex& vertex) {
        return std::ranges::any_of(vertex.uv,
                                   [](float at) { return at < -kOnEdge || at > 1.0F + kOnEdge; });
    });
}

bool IsCropped(const CorvexDB::udtMaterial& material)
{
    return material.Placement != CorvexDB::TexturePlacement();
}

class SceneMeshes {
public:
    explicit SceneMeshes(ImportedModel& model) : m_model(model) {}

    std::size_t IndexOf(const FrameItem& item, std::size_t material, const std::string& shape)
    {
        const bool isWrapped = item.coordinates == CorvexSG::CoordinateMode::FromWrap;
        const bool hasImages = HasPlacedImages(*item.material);
        const bool isCut = IsCropped(*item.material) && LeavesOneTile(*item.mesh);
        const bool isTurned = item.material->TextureRotation != 0.0F;
        const bool isMade = hasImages && (isWrapped || isCut || isTurned);
        const ImportedMesh mesh{isMade ? Made(item, shape) : item.mesh, material,
                                !isWrapped || hasImages};
        const auto [known, isNew] = m_indexes.try_emplace(
            {mesh.mesh->id, material, mesh.hasCoordinates}, m_model.meshes.size());
        if (isNew) {
            m_model.meshes.push_back(mesh);
        }
        return known->second;
    }

private:
    std::shared_ptr<const Mesh> Made(const FrameItem& item, const std::string& shape)
    {
        std::vector<float> terms = NumbersOf(WrapTermsOf(item, *item.material));
        terms.push_back(IsCropped(*item.material) ? 1.0F : 0.0F);
        const auto [known, isNew] = m_made.try_emplace({item.mesh->id, std::move(terms)});
        if (isNew) {
            known->second = WithCoordinates(item);
        }
        if (!known->second.isExact) {
            MaterialNotes(m_model.report, shape)
                .Approximated(InterchangeTr("Coordinates"),
                              QT_TRANSLATE_NOOP("Interchange", "within large triangles images lie "
                                                               "a little elsewhere"));
        }
        return known->second.mesh;
    }

    ImportedModel& m_model;
    std::map<std::pair<std::uint64_t, std::vector<float>>, WrappedMesh> m_made;
    std::map<std::tuple<std::uint64_t, std::size_t, bool>, std::size_t> m_indexes;
};

bool IsFinite(const QMatrix4x4& matrix)
{
    return std::ranges::all_of(std::span(matrix.constData(), 16),
                               [](float number) { return std::isfinite(number); });
}

}  // namespace

StudioScene::Shapes ShapesOf(const ImportedModel& model)
{
    std::vector<AppliedMaterial> materials;
    materials.reserve(model.materials.size());
    for (const NamedMaterial& named : model.materials) {
        materials.push_back(WholeMaterial(named.material));
        materials.back().identity = std::make_shared<SceneMaterial>(SceneMaterial{named.name, {}});
    }
    StudioScene::Shapes shapes;
    shapes.reserve(model.shapes.size());
    for (const ImportedShape& source : model.shapes) {
        const ImportedMesh& mesh = model.meshes[source.mesh];
        AppliedMaterial applied = materials[mesh.material];
        if (!mesh.hasCoordinates) {
            applied.coordinates = CorvexSG::CoordinateMode::FromWrap;
        }
        shapes.push_back(std::make_shared<StudioShape>(source.name, mesh.mesh, std::move(applied)));
        shapes.back()->SetWorldFromMesh(source.worldFromMesh);
    }
    return shapes;
}

ImportedModel ModelOf(const StudioScene::Shapes& shapes, const std::stop_token& stop)
{
    ImportedModel model;
    SceneMaterials materials(model.materials);
    SceneMeshes meshes(model);
    for (const auto& shape : shapes) {
        CorvexMaterial::ThrowIfStopped(stop);
        const FrameItem item = shape->Item();
        if (item.mesh == nullptr || item.mesh->indices.empty() || !IsFinite(item.worldFromMesh)) {
            MaterialNotes(model.report, shape->Name())
                .Dropped(InterchangeTr("Shape"),
                         QT_TRANSLATE_NOOP("Interchange", "it has no surface"));
            continue;
        }
        const std::size_t material = materials.IndexOf(shape->Applied());
        model.shapes.push_back(
            {shape->Name(), meshes.IndexOf(item, material, shape->Name()), item.worldFromMesh});
    }
    return model;
}

}  // namespace studio
