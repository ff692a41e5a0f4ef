#include "ObjImport.h"

#include "DocumentFile.h"
#include "MtlMaterials.h"
#include "ObjFile.h"
#include "ShapeNames.h"
#include "TextureReference.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <map>

namespace studio {
namespace {

/// A statement names one library, whose name may have blanks, or several. Where the model does not
/// name it rightly, it is beside the model under the model's name.
std::vector<std::string> LibraryFiles(const std::string& statement, const std::string& path)
{
    const std::string folder = FolderOfDocument(path);
    const QString text = TextOfDocument(statement.c_str());
    const QString own = QFileInfo(QString::fromStdString(path)).completeBaseName() + ".mtl";
    std::vector<std::string> files;
    for (const QStringList& names :
         {QStringList(text), text.split(u' ', Qt::SkipEmptyParts), QStringList(own)}) {
        for (const QString& name : names) {
            const FoundTexture found = FindReferenced(name.toStdString(), folder);
            if (found.exists) {
                files.push_back(found.path);
            }
        }
        if (!files.empty()) {
            return files;
        }
    }
    return {FindReferenced(text.toStdString(), folder).path};
}

void AddLibrary(const std::string& file, ImportedModel& model)
{
    if (std::ranges::find(model.files, file) != model.files.end()) {
        return;
    }
    model.files.push_back(file);
    const ModelFile opened(file);
    if (!opened.Obstacle().empty()) {
        MaterialNotes(model.report, file)
            .Add("mtllib", Outcome::Dropped, QT_TRANSLATE_NOOP("Interchange", "not read: %1"),
                 opened.Obstacle());
        return;
    }
    auto materials = MaterialsOfMtl(opened.Bytes(), file, model.report);
    std::ranges::move(materials, std::back_inserter(model.materials));
}

/// Of a part that names no material, or one that is in no library.
std::size_t PlainMaterial(ImportedModel& model)
{
    constexpr CorvexMaterial::ColourBytes kPlainGrey{153, 153, 153};
    NamedMaterial plain{"Default", {}};
    plain.material.Color = CorvexMaterial::MakeColour(kPlainGrey);
    plain.material.Emissive = 0;
    model.materials.push_back(std::move(plain));
    return model.materials.size() - 1;
}

class PartMaterials {
public:
    explicit PartMaterials(ImportedModel& model) : m_model(model)
    {
        for (std::size_t index = 0; index < model.materials.size(); ++index) {
            m_indexes[model.materials[index].name] = index;
        }
    }

    std::size_t IndexOf(const ObjPart& part)
    {
        const std::string name =
            ReadableName(TextOfDocument(part.material.c_str()).toStdString(), {});
        const auto known = m_indexes.find(name);
        if (known != m_indexes.end()) {
            return known->second;
        }
        m_plain = m_plain ? m_plain : PlainMaterial(m_model);
        return *m_plain;
    }

private:
    ImportedModel& m_model;
    std::map<std::string, std::size_t, std::less<>> m_indexes;
    std::optional<std::size_t> m_plain;
};

}  // namespace

ImportedModel ReadObj(const std::string& path)
{
    const ModelFile opened(path);
    if (!opened.Obstacle().empty()) {
        RefuseDocument(path, opened.Obstacle());
    }
    ObjFile file = ParseObj(opened.Text());
    ImportedModel model;
    for (const std::string& statement : file.libraries) {
        for (const std::string& library : LibraryFiles(statement, path)) {
            AddLibrary(library, model);
        }
    }
    PartMaterials materials(model);
    for (ObjPart& part : file.parts) {
        part.mesh.material = materials.IndexOf(part);
        const std::string numbered = "Shape " + std::to_string(model.shapes.size() + 1);
        model.shapes.push_back({ReadableName(part.name, numbered), model.meshes.size(), {}});
        model.meshes.push_back(Finished(std::exchange(part.mesh, {})));
    }
    TintByVertices(model, std::vector(model.materials.size(), VertexColours::Meaning::Displayed));
    return model;
}

ImportedModel ReadMtl(const std::string& path)
{
    ImportedModel model;
    model.materials = MaterialsOfMtl(ReadDocument(path), path, model.report);
    return model;
}

}  // namespace studio
