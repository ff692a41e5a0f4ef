#include "AssimpReader.h"

#include "AssimpMaterial.h"
#include "AssimpMesh.h"
#include "DocumentFile.h"
#include "GuardedFiles.h"
#include "PicturesInside.h"
#include "ShapeNames.h"
#include "TextureReference.h"
#include <CorvexMaterial/Status.h>

#include <assimp/Importer.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <span>

namespace studio {

namespace {

using CorvexMaterial::Error;
using CorvexMaterial::Status;

QMatrix4x4 MatrixFrom(const aiMatrix4x4& source)
{
    QMatrix4x4 matrix;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            const float value = source[static_cast<unsigned int>(row)][column];
            if (!(std::abs(value) <= kLargestCoordinate)) {
                return {};
            }
            matrix(row, column) = value;
        }
    }
    return matrix;
}

struct NodeVisit {
    const aiNode* node;
    aiMatrix4x4 worldFromParent;
};

// With a list of its own instead of recursion: the depth of a file's nodes is the file's choice.
void AddShapes(const aiScene& scene, ImportedModel& model)
{
    std::vector<NodeVisit> open{{scene.mRootNode, aiMatrix4x4()}};
    while (!open.empty()) {
        const NodeVisit visit = open.back();
        open.pop_back();
        const aiMatrix4x4 worldFromNode = visit.worldFromParent * visit.node->mTransformation;
        for (unsigned int use = 0; use < visit.node->mNumMeshes; ++use) {
            const unsigned int mesh = visit.node->mMeshes[use];
            const aiString& own = scene.mMeshes[mesh]->mName;
            const aiString& name = own.length > 0 ? own : visit.node->mName;
            const std::string numbered = "Shape " + std::to_string(model.shapes.size() + 1);
            model.shapes.push_back({ReadableName({name.data, name.length}, numbered), mesh,
                                    MatrixFrom(worldFromNode)});
        }
        for (unsigned int child = visit.node->mNumChildren; child > 0; --child) {
            open.push_back({visit.node->mChildren[child - 1], worldFromNode});
        }
    }
}

void Configure(Assimp::Importer& importer)
{
    // Smooth a curved surface, keep the edges of a box.
    importer.SetPropertyFloat(AI_CONFIG_PP_GSN_MAX_SMOOTHING_ANGLE, 60.0F);
    importer.SetPropertyInteger(AI_CONFIG_PP_SBP_REMOVE,
                                aiPrimitiveType_POINT | aiPrimitiveType_LINE);
}

constexpr unsigned int kSteps = aiProcess_Triangulate | aiProcess_JoinIdenticalVertices |
                                aiProcess_GenSmoothNormals | aiProcess_SortByPType |
                                aiProcess_ValidateDataStructure;

[[noreturn]] void Refuse(const std::string& path, const std::string& reason)
{
    if (reason.find("bad_alloc") != std::string::npos) {
        throw Error(Status::OutOfMemory, path + ": there is not enough memory for it");
    }
    throw Error(Status::FileFailed, path + ": " + reason);
}

// All of a model's together.
constexpr qsizetype kMostModelPictureBytes = qsizetype{512} << 20;

/// A file that is not there keeps its path, so that it shows as missing and can be looked for; one
/// inside the model has no path.
class ImageFiles {
public:
    ImageFiles(const aiScene& scene, const std::string& path, ImportedModel& model)
        : m_folder(FolderOfDocument(path)),
          m_pictures(scene, model.pictures, kMostModelPictureBytes)
    {
    }

    void FindFor(CorvexDB::TextureFiles& textures, std::size_t wearer, MaterialNotes& notes)
    {
        textures.alpha = textures.alpha == textures.primary ? std::string() : textures.alpha;
        const std::string primary = textures.primary;
        for (std::string* file :
             {&textures.primary, &textures.alpha, &textures.bump, &textures.specular}) {
            const bool found = Find(*file, notes);
            if (file == &textures.primary && !found) {
                m_pictures.Take(primary, wearer);
            }
        }
    }

private:
    bool Find(std::string& file, MaterialNotes& notes) const
    {
        if (file.empty() || file.starts_with('*')) {
            const bool nothing = file.empty();
            file.clear();
            return nothing;
        }
        const FoundTexture found = FindReferenced(file, m_folder);
        notes.Add("image: " + file, found.exists ? Outcome::Mapped : Outcome::Approximated,
                  found.exists ? ""
                               : QT_TRANSLATE_NOOP("Interchange", "the image file is missing"));
        file = found.path;
        return found.exists;
    }

    std::string m_folder;
    PicturesInside m_pictures;
};

/// Which of the model's materials each of the scene's is.
using MaterialPlaces = std::vector<std::size_t>;

MaterialPlaces AddMaterials(const aiScene& scene, const std::string& path, ImportedModel& model)
{
    ImageFiles images(scene, path, model);
    MaterialPlaces places;
    for (unsigned int index = 0; index < scene.mNumMaterials; ++index) {
        const aiString raw = scene.mMaterials[index]->GetName();
        const std::string name =
            ReadableName({raw.data, raw.length}, "Material " + std::to_string(index + 1));
        MaterialNotes notes(model.report, name);
        auto material = MaterialFrom(*scene.mMaterials[index], notes);
        images.FindFor(material.Textures, index, notes);
        places.push_back(model.materials.size());
        model.materials.push_back({name, std::move(material)});
    }
    return places;
}

/// By their names, for their order is that in which meshes wear them; the last for all others.
MaterialPlaces FindMaterials(const aiScene& scene, const std::string& /*path*/,
                             ImportedModel& model)
{
    MaterialPlaces places;
    for (const aiMaterial* source : std::span(scene.mMaterials, scene.mNumMaterials)) {
        const aiString raw = source->GetName();
        const auto known = std::ranges::find(
            model.materials, ReadableName({raw.data, raw.length}, {}), &NamedMaterial::name);
        const auto place = static_cast<std::size_t>(known - model.materials.begin());
        places.push_back(std::min(place, model.materials.size() - 1));
    }
    return places;
}

void AddMeshes(const aiScene& scene, const MaterialPlaces& places, ImportedModel& model)
{
    for (const aiMesh* mesh : std::span(scene.mMeshes, scene.mNumMeshes)) {
        RawMesh raw = MeshFrom(*mesh);
        raw.material = places.at(raw.material);
        model.meshes.push_back(Finished(std::move(raw)));
    }
}

/// Where several materials of the scene are one of the model, as the first has it.
std::vector<VertexColours::Meaning> MeaningsOf(const aiScene& scene, const MaterialPlaces& places,
                                               std::size_t materials)
{
    std::vector<VertexColours::Meaning> meanings(materials);
    for (std::size_t index = places.size(); index-- > 0;) {
        meanings[places[index]] = HasPhysicalLook(*scene.mMaterials[index])
                                      ? VertexColours::Meaning::Light
                                      : VertexColours::Meaning::Displayed;
    }
    return meanings;
}

ImportedModel Read(const std::string& path, ImportedModel model,
                   MaterialPlaces (*materials)(const aiScene&, const std::string&, ImportedModel&))
{
    std::string refused;
    Assimp::Importer importer;
    importer.SetIOHandler(new GuardedFiles(refused));
    Configure(importer);
    const aiScene* scene = importer.ReadFile(path, kSteps);
    if (scene == nullptr && !refused.empty()) {
        throw Error(Status::FileFailed, refused);
    }
    if (scene == nullptr) {
        Refuse(path, importer.GetErrorString());
    }
    if (scene->mRootNode == nullptr || scene->mNumMaterials == 0) {
        Refuse(path, "the file holds no scene");
    }
    const MaterialPlaces places = materials(*scene, path, model);
    AddMeshes(*scene, places, model);
    AddShapes(*scene, model);
    TintByVertices(model, MeaningsOf(*scene, places, model.materials.size()));
    if (!refused.empty()) {
        MaterialNotes(model.report, refused)
            .Dropped("file", QT_TRANSLATE_NOOP("Interchange", "not read"));
    }
    return model;
}

}  // namespace

ImportedModel ReadWithAssimp(const std::string& path)
{
    return Read(path, {}, AddMaterials);
}

ImportedModel WithAssimpShapes(const std::string& path, ImportedModel model)
{
    return Read(path, std::move(model), FindMaterials);
}

}  // namespace studio
