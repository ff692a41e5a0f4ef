#include "DocumentParts.h"
#include "DocumentRows.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace studio {
namespace {

std::string Utf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), std::ssize(text)).toStdString();
}

class Loading {
public:
    Loading(Database& database, const std::string& folder, DocumentRows& rows,
            std::vector<std::string>& problems)
        : m_database(database), m_folder(folder), m_rows(rows), m_problems(problems)
    {
    }

    void Run()
    {
        m_rows.textures.Extract(m_database, m_problems);
        ReadMaterials();
        ReadShapes();
        ReadDocument();
    }

private:
    void ReadMaterials()
    {
        Statement rows = m_database.Compile("SELECT id, name, mode, json FROM materials");
        while (rows.Step()) {
            AppliedMaterial applied = SceneMaterialOfJson(rows.Text(3), Utf8(rows.Text(1)),
                                                          rows.Integer(2), m_folder, m_problems);
            DocumentRows::Material row{rows.Integer(0), {}};
            auto gathered = std::make_shared<CorvexSG::GatheredMaterial>(*applied.gathered);
            const auto extracted = [&](const std::string& stored) {
                auto file = m_rows.textures.FileOf(stored);
                if (file) {
                    row.embedded.insert(stored);
                }
                return file;
            };
            ReplaceTextures(gathered->material, extracted);
            applied.gathered = std::move(gathered);
            if (applied.identity->link != nullptr) {
                auto link = std::make_shared<LibraryLink>(*applied.identity->link);
                ReplaceTextures(link->taken, extracted);
                SceneMaterial identity = *applied.identity;
                identity.link = std::move(link);
                applied.identity = std::make_shared<SceneMaterial>(std::move(identity));
            }
            m_rows.materials.emplace(KeyOf(applied), row);
            m_materials.emplace(row.id, std::move(applied));
        }
    }

    void ReadShapes()
    {
        Statement rows = m_database.Compile(
            "SELECT place, name, mesh, material, json FROM shapes ORDER BY place");
        while (rows.Step()) {
            ShapeState shape;
            m_rows.hasGaps |= rows.Integer(0) != std::ssize(m_rows.content.shapes);
            shape.name = Utf8(rows.Text(1));
            const auto material = m_materials.find(rows.Integer(3));
            if (material == m_materials.end()) {
                m_problems.push_back("Shape \"" + shape.name + "\" has lost its material.");
                shape.applied = WholeMaterial({});
            } else {
                shape.applied = material->second;
            }
            if (!ReadShape(rows.Text(4), shape)) {
                m_problems.push_back("Shape \"" + shape.name + "\" has lost its place.");
            }
            if (const std::int64_t mesh = rows.Integer(2); mesh != 0) {
                shape.mesh = MeshOf(mesh);
            }
            m_rows.content.shapes.push_back(std::move(shape));
        }
    }

    const std::shared_ptr<const Mesh>& MeshOf(std::int64_t id)
    {
        auto& mesh = m_meshes[id];
        if (mesh == nullptr) {
            mesh = ReadMesh(m_database, id);
            m_rows.meshes.emplace(mesh->id, DocumentRows::Mesh{id, mesh});
        }
        return mesh;
    }

    void ReadDocument()
    {
        SceneContent& content = m_rows.content;
        content.camera = CameraOfJson(Parsed("camera"));
        content.views = ViewsOfJson(Parsed("views"));
        content.source = SourceOfJson(Parsed("source"), m_folder);
        content.textures = ValueOf(m_database, "textures") == "\"embedded\""
                               ? TexturePlace::Embedded
                               : TexturePlace::Referenced;
        const QJsonArray selection =
            QJsonDocument::fromJson(QByteArray::fromStdString(Parsed("selection"))).array();
        for (const QJsonValue& place : selection) {
            if (const int at = place.toInt(-1); at >= 0 && at < std::ssize(content.shapes)) {
                content.selection.push_back(static_cast<std::size_t>(at));
            }
        }
        Statement picture = m_database.Compile(
            "SELECT bytes FROM chunks WHERE kind = 4 AND owner = 1 AND part = 0");
        if (picture.Step()) {
            content.picture = std::string(picture.Blob(0));
        }
    }

    /// Objects and arrays.
    std::string Parsed(const char* key)
    {
        std::string json = ValueOf(m_database, key);
        if (!json.empty() && QJsonDocument::fromJson(QByteArray::fromStdString(json)).isNull()) {
            m_problems.push_back(std::string("Its ") + key + " cannot be read.");
        }
        return json;
    }

    Database& m_database;
    const std::string& m_folder;
    DocumentRows& m_rows;
    std::vector<std::string>& m_problems;
    std::map<std::int64_t, AppliedMaterial> m_materials;
    std::map<std::int64_t, std::shared_ptr<const Mesh>> m_meshes;
};

}  // namespace

void LoadRows(Database& database, const std::string& folder, DocumentRows& rows,
              std::vector<std::string>& problems)
{
    Loading(database, folder, rows, problems).Run();
}

}  // namespace studio
