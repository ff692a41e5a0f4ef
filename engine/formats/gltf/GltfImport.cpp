#include "GltfImport.h"

#include "AssimpReader.h"
#include "GltfScene.h"
#include "GltfSurface.h"
#include "ShapeNames.h"

#include <QCoreApplication>

namespace studio {
namespace {

/// All pictures of a file together; what is beyond comes without.
constexpr qsizetype kMostPictureBytes = qsizetype{512} << 20;

/// The pictures inside a document, each once.
class GltfPictures {
public:
    GltfPictures(GltfFile& file, ImportedModel& model) : m_file(file), m_model(model) {}

    void Take(qint64 image, std::size_t wearer)
    {
        const auto [known, isNew] = m_indexes.try_emplace(image, m_model.pictures.size());
        if (isNew) {
            const QByteArray bytes = BytesOf(m_file.At("images", image));
            m_model.pictures.push_back({bytes.size() > m_left ? QByteArray() : bytes, {}});
            m_left -= m_model.pictures.back().bytes.size();
        }
        m_model.pictures[known->second].wearers.push_back(wearer);
    }

private:
    /// A copy, which outlasts the file.
    [[nodiscard]] QByteArray BytesOf(const QJsonObject& image)
    {
        if (const auto data = DataOfUri(image[u"uri"].toString())) {
            return *data;
        }
        const QByteArray view = m_file.View(image[u"bufferView"]);
        return {view.constData(), view.size()};
    }

    GltfFile& m_file;
    ImportedModel& m_model;
    std::map<qint64, std::size_t> m_indexes;
    qsizetype m_left = kMostPictureBytes;
};

void AddMaterials(GltfFile& file, ImportedModel& model)
{
    GltfPictures pictures(file, model);
    const QJsonArray sources = file.Root()[u"materials"].toArray();
    for (const QJsonValue source : sources) {
        const std::size_t number = model.materials.size();
        const std::string name = ReadableName(source[u"name"].toString().toStdString(),
                                              "Material " + std::to_string(number + 1));
        const GltfSurface surface =
            SurfaceOfGltf(source.toObject(), file, MaterialNotes(model.report, name));
        model.materials.push_back({name, surface.material});
        if (surface.imageInside) {
            pictures.Take(*surface.imageInside, number);
        }
    }
}

/// What the format gives to what names no material. Left out again when nothing wears it.
NamedMaterial PlainMaterial(const GltfFile& file)
{
    Report unsaid;
    return {"Default", SurfaceOfGltf({}, file, MaterialNotes(unsaid, "")).material};
}

bool IsPacked(const GltfFile& file)
{
    return file.Root()[u"extensionsRequired"].toArray().contains(
        QStringLiteral("KHR_draco_mesh_compression"));
}

}  // namespace

ImportedModel ModelOfGltf(const QByteArray& bytes, const std::string& path)
{
    GltfFile file(bytes, path);
    if (file.Root()[u"meshes"].isObject()) {
        return ReadWithAssimp(path);  // the format's first version, of another structure
    }
    ImportedModel model;
    model.files = file.DataFiles();
    AddMaterials(file, model);
    const std::size_t plain = model.materials.size();
    model.materials.push_back(PlainMaterial(file));
    if (IsPacked(file)) {
        return WithAssimpShapes(path, std::move(model));
    }
    AddGltfShapes(file, plain, model);
    if (std::ranges::none_of(model.meshes,
                             [&](const auto& mesh) { return mesh.material == plain; })) {
        model.materials.pop_back();
    }
    TintByVertices(model, std::vector(model.materials.size(), VertexColours::Meaning::Light));
    return model;
}

ImportedModel ReadGltf(const std::string& path)
{
    const ModelFile file(path);
    if (!file.Obstacle().empty()) {
        RefuseDocument(path, file.Obstacle());
    }
    return ModelOfGltf(file.Bytes(), path);
}

}  // namespace studio
