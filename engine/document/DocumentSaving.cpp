#include "DatabaseError.h"
#include "DocumentParts.h"
#include "DocumentRows.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <limits>

namespace studio {
namespace {

constexpr std::int64_t kThePicture = 1;

class Saving {
public:
    Saving(Database& database, const std::string& folder, DocumentRows& rows,
           const SceneContent& content)
        : m_database(database), m_folder(folder), m_rows(rows), m_content(content)
    {
        for (const ShapeState& shape : m_content.shapes) {
            m_materials.insert(KeyOf(shape.applied));
        }
    }

    void Run()
    {
        if (m_rows.content.textures != m_content.textures) {
            MoveTextures();
        }
        WriteShapes();
        RemoveUnused();
        WriteDocument();
        m_rows.content = m_content;
    }

private:
    /// Into the document, or out of it.
    void MoveTextures()
    {
        for (auto& row : m_rows.materials) {
            if (m_materials.contains(row.first)) {
                Write(row);
            }
        }
    }

    void WriteShapes()
    {
        const auto& before = m_rows.content.shapes;
        for (std::size_t place = 0; place < m_content.shapes.size(); ++place) {
            const ShapeState& shape = m_content.shapes[place];
            const std::int64_t mesh = IdOf(shape.mesh);
            const std::int64_t material = IdOf(KeyOf(shape.applied));
            if (m_rows.hasGaps || place >= before.size() || before[place] != shape) {
                m_database
                    .Use("INSERT OR REPLACE INTO shapes (place, name, mesh, material, json) "
                         "VALUES (?1, ?2, nullif(?3, 0), ?4, ?5)")
                    .Bind(1, static_cast<std::int64_t>(place))
                    .Bind(2, shape.name)
                    .Bind(3, mesh)
                    .Bind(4, material)
                    .Bind(5, JsonOfShape(shape).toStdString())
                    .Run();
            }
        }
        m_database.Use("DELETE FROM shapes WHERE place < 0 OR place >= ?1")
            .Bind(1, std::ssize(m_content.shapes))
            .Run();
        m_rows.hasGaps = false;
    }

    std::int64_t IdOf(const std::shared_ptr<const Mesh>& mesh)
    {
        if (mesh == nullptr) {
            return 0;
        }
        DocumentRows::Mesh& row = m_rows.meshes[mesh->id];
        if (row.mesh == nullptr) {
            row = {NextId("SELECT max(id) FROM meshes"), mesh};
            WriteMesh(m_database, row.id, *mesh);
        }
        m_meshes.insert(mesh->id);
        return row.id;
    }

    std::int64_t IdOf(const MaterialKey& key)
    {
        auto row = m_rows.materials.find(key);
        if (row == m_rows.materials.end()) {
            row = m_rows.materials.emplace(key, DocumentRows::Material{RowFor(key), {}}).first;
            Write(*row);
        }
        return row->second.id;
    }

    /// A material that was edited or renamed keeps its row.
    std::int64_t RowFor(const MaterialKey& key)
    {
        const auto former = std::ranges::find_if(m_rows.materials, [&](const auto& row) {
            const bool isSame = key.identity != nullptr ? row.first.identity == key.identity
                                                        : row.first.gathered == key.gathered;
            return isSame && !m_materials.contains(row.first);
        });
        if (former == m_rows.materials.end()) {
            return NextId("SELECT max(id) FROM materials");
        }
        const std::int64_t id = former->second.id;
        m_rows.materials.erase(former);
        return id;
    }

    void Write(std::pair<const MaterialKey, DocumentRows::Material>& entry)
    {
        const MaterialKey& key = entry.first;
        DocumentRows::Material& row = entry.second;
        CorvexDB::udtMaterial material = key.gathered->material;
        row.embedded.clear();
        const auto embedded = [&](const std::string& file) {
            auto stored = Embedded(file);
            if (stored) {
                row.embedded.insert(*stored);
            }
            return stored;
        };
        ReplaceTextures(material, embedded);
        SceneMaterial identity = key.identity != nullptr ? *key.identity : SceneMaterial();
        if (identity.link != nullptr) {
            auto link = std::make_shared<LibraryLink>(*identity.link);
            ReplaceTextures(link->taken, embedded);
            identity.link = std::move(link);
        }
        m_database
            .Use("INSERT OR REPLACE INTO materials (id, name, mode, json) VALUES (?1, ?2, ?3, ?4)")
            .Bind(1, row.id)
            .Bind(2, identity.name)
            .Bind(3, static_cast<std::int64_t>(key.gathered->applyMode))
            .Bind(4, JsonOfSceneMaterial(material, identity, m_folder).toStdString())
            .Run();
    }

    std::optional<std::string> Embedded(const std::string& file)
    {
        const bool belongsInside =
            m_content.textures == TexturePlace::Embedded || m_rows.textures.IsExtracted(file);
        return file.empty() || !belongsInside ? std::nullopt
                                              : m_rows.textures.Embed(m_database, file);
    }

    void RemoveUnused()
    {
        std::set<std::string> textures;
        std::erase_if(m_rows.materials, [&](const auto& row) {
            if (m_materials.contains(row.first)) {
                textures.insert(row.second.embedded.begin(), row.second.embedded.end());
                return false;
            }
            m_database.Use("DELETE FROM materials WHERE id = ?1").Bind(1, row.second.id).Run();
            return true;
        });
        m_rows.textures.Keep(m_database, textures);
        std::erase_if(m_rows.meshes, [&](const auto& row) {
            if (m_meshes.contains(row.first)) {
                return false;
            }
            m_database.Use("DELETE FROM meshes WHERE id = ?1").Bind(1, row.second.id).Run();
            RemoveChunks(m_database, ChunkOwner::Vertices, row.second.id);
            RemoveChunks(m_database, ChunkOwner::Indices, row.second.id);
            return true;
        });
    }

    void WriteDocument()
    {
        QJsonArray selection;
        for (const std::size_t place : m_content.selection) {
            selection.append(static_cast<double>(place));
        }
        Put("selection", QJsonDocument(selection).toJson(QJsonDocument::Compact));
        Put("textures",
            m_content.textures == TexturePlace::Embedded ? "\"embedded\"" : "\"referenced\"");
        Put("source", JsonOfSource(m_content.source, m_folder));
        if (m_content.camera) {
            Put("camera", JsonOfCamera(*m_content.camera));
        }
        if (m_content.views != m_rows.content.views) {
            Put("views", JsonOfViews(m_content.views));
        }
        if (m_content.mark != 0) {
            Put("mark", QByteArray::number(static_cast<qint64>(m_content.mark)));
        }
        if (m_content.picture != m_rows.content.picture) {
            WriteChunks(m_database, ChunkOwner::Picture, kThePicture, m_content.picture);
        }
    }

    void Put(const char* key, const QByteArray& json)
    {
        m_database
            .Use("INSERT INTO document (key, json) VALUES (?1, ?2) "
                 "ON CONFLICT (key) DO UPDATE SET json = excluded.json WHERE json <> excluded.json")
            .Bind(1, std::string_view(key))
            .Bind(2, json.toStdString())
            .Run();
    }

    std::int64_t NextId(const char* latest)
    {
        const std::int64_t id = m_database.Integer(latest);
        if (id == std::numeric_limits<std::int64_t>::max()) {
            ThrowDatabaseError(m_database.Path(), "it has no number left for something new");
        }
        return id + 1;
    }

    Database& m_database;
    const std::string& m_folder;
    DocumentRows& m_rows;
    const SceneContent& m_content;
    std::set<MaterialKey> m_materials;  ///< that shapes have
    std::set<std::uint64_t> m_meshes;
};

}  // namespace

void SaveRows(Database& database, const std::string& folder, DocumentRows& rows,
              const SceneContent& content)
{
    Saving(database, folder, rows, content).Run();
}

}  // namespace studio
