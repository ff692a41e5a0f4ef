#include "SceneDocument.h"

#include "Database.h"
#include "DatabaseError.h"
#include "DocumentParts.h"
#include "DocumentTextures.h"
#include "FileClaim.h"
#include "FileWriting.h"
#include "RegularFile.h"
#include "StoredPath.h"
#include <CorvexMaterial/Schema.h>
#include <CorvexMaterial/Status.h>

#include <QDateTime>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <map>
#include <set>

namespace studio {
namespace {

using CorvexSG::GatheredMaterial;

constexpr std::int64_t kThePicture = 1;

/// A material of the file: what is applied, and what it is called.
struct MaterialKey {
    std::shared_ptr<const GatheredMaterial> gathered;
    std::shared_ptr<const SceneMaterial> identity;

    auto operator<=>(const MaterialKey&) const = default;
};

struct MaterialRow {
    std::int64_t id = 0;
    std::set<std::string> embedded;  ///< what it says of pictures inside the document
};

struct MeshRow {
    std::int64_t id = 0;
    std::shared_ptr<const Mesh> mesh;  ///< so that its address is nobody else's
};

/// What stands in the file, by what the studio holds.
struct Rows {
    std::map<std::uint64_t, MeshRow> meshes;  ///< by the mesh's id
    std::map<MaterialKey, MaterialRow> materials;
    DocumentTextures textures;
    SceneContent content;
    bool hasGaps = false;  ///< the shapes' places in the file are not those in the content
};

std::string CanonicalPath(const std::string& path)
{
    const QFileInfo file(QString::fromStdString(path));
    const QString canonical = file.canonicalFilePath();
    return (canonical.isEmpty() ? file.absoluteFilePath() : canonical).toStdString();
}

MaterialKey KeyOf(const ShapeState& shape)
{
    return {shape.applied.gathered, shape.applied.identity};
}

/// Brings the file to what the content is.
class Saving {
public:
    Saving(Database& database, const std::string& folder, Rows& rows, const SceneContent& content)
        : m_database(database), m_folder(folder), m_rows(rows), m_content(content),
          m_texturesMove(rows.content.textures != content.textures)
    {
    }

    void Run()
    {
        for (const ShapeState& shape : m_content.shapes) {
            m_materials.insert(KeyOf(shape));
        }
        WriteShapes();
        RemoveUnused();
        WriteDocument();
        m_rows.content = m_content;
    }

private:
    void WriteShapes()
    {
        const auto& before = m_rows.content.shapes;
        for (std::size_t place = 0; place < m_content.shapes.size(); ++place) {
            const ShapeState& shape = m_content.shapes[place];
            const std::int64_t mesh = IdOf(shape.mesh);
            const std::int64_t material = IdOf(KeyOf(shape));
            if (m_rows.hasGaps || place >= before.size() || before[place] != shape) {
                WriteShape(static_cast<std::int64_t>(place), shape, mesh, material);
            }
        }
        m_database.Use("DELETE FROM shapes WHERE place < 0 OR place >= ?1")
            .Bind(1, std::ssize(m_content.shapes))
            .Run();
        m_rows.hasGaps = false;
    }

    void WriteShape(std::int64_t place, const ShapeState& shape, std::int64_t mesh,
                    std::int64_t material)
    {
        m_database
            .Use("INSERT OR REPLACE INTO shapes (place, name, mesh, material, json) "
                 "VALUES (?1, ?2, nullif(?3, 0), ?4, ?5)")
            .Bind(1, place)
            .Bind(2, shape.name)
            .Bind(3, mesh)
            .Bind(4, material)
            .Bind(5, JsonOfShape(shape).toStdString())
            .Run();
    }

    std::int64_t IdOf(const std::shared_ptr<const Mesh>& mesh)
    {
        if (mesh == nullptr) {
            return 0;
        }
        MeshRow& row = m_rows.meshes[mesh->id];
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
            row = m_rows.materials.emplace(key, MaterialRow{RowFor(key), {}}).first;
            Write(*row);
        } else if (m_texturesMove && m_moved.insert(key).second) {
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

    void Write(std::pair<const MaterialKey, MaterialRow>& entry)
    {
        auto& [key, row] = entry;
        CorvexDB::udtMaterial material = key.gathered->material;
        row.embedded.clear();
        for (const CorvexMaterial::Attribute layer : CorvexMaterial::kTextureFiles) {
            const auto& path = CorvexMaterial::RowOf(layer).path;
            const std::string file = std::get<std::string>(path.get(material));
            if (const auto stored = Embedded(file)) {
                row.embedded.insert(*stored);
                path.set(material, *stored);
            }
        }
        const SceneMaterial unnamed;
        const SceneMaterial& identity = key.identity != nullptr ? *key.identity : unnamed;
        m_database
            .Use("INSERT OR REPLACE INTO materials (id, name, mode, json) VALUES (?1, ?2, ?3, ?4)")
            .Bind(1, row.id)
            .Bind(2, identity.name)
            .Bind(3, static_cast<std::int64_t>(key.gathered->applyMode))
            .Bind(4, JsonOfSceneMaterial(material, identity.unknown, m_folder).toStdString())
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
        std::erase_if(m_rows.materials, [&](const auto& row) {
            const bool isUnused = !m_materials.contains(row.first);
            if (isUnused) {
                m_database.Use("DELETE FROM materials WHERE id = ?1").Bind(1, row.second.id).Run();
            }
            return isUnused;
        });
        std::erase_if(m_rows.meshes, [&](const auto& row) {
            const bool isUnused = !m_meshes.contains(row.first);
            if (isUnused) {
                m_database.Use("DELETE FROM meshes WHERE id = ?1").Bind(1, row.second.id).Run();
                RemoveChunks(m_database, ChunkOwner::Vertices, row.second.id);
                RemoveChunks(m_database, ChunkOwner::Indices, row.second.id);
            }
            return isUnused;
        });
        std::set<std::string> used;
        for (const auto& [key, row] : m_rows.materials) {
            used.insert(row.embedded.begin(), row.embedded.end());
        }
        m_rows.textures.Keep(m_database, used);
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
    Rows& m_rows;
    const SceneContent& m_content;
    bool m_texturesMove;  ///< into the document, or out of it
    std::set<MaterialKey> m_materials;
    std::set<MaterialKey> m_moved;
    std::set<std::uint64_t> m_meshes;
};

/// Takes a file's content over.
class Loading {
public:
    Loading(Database& database, const std::string& folder, Rows& rows,
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
            const std::string name =
                QString::fromUtf8(rows.Text(1).data(), std::ssize(rows.Text(1))).toStdString();
            AppliedMaterial applied = SceneMaterialOfJson(rows.Text(3), name, m_folder, m_problems);
            auto gathered = std::make_shared<GatheredMaterial>(*applied.gathered);
            constexpr auto kLastMode = static_cast<std::int64_t>(CorvexDB::ApplyMode::FilesOnly);
            if (const std::int64_t mode = rows.Integer(2); mode >= 0 && mode <= kLastMode) {
                gathered->applyMode = static_cast<CorvexDB::ApplyMode>(mode);
            }
            MaterialRow row{rows.Integer(0), {}};
            FindTextures(gathered->material, row);
            applied.gathered = std::move(gathered);
            m_rows.materials.emplace(MaterialKey{applied.gathered, applied.identity}, row);
            m_materials.emplace(row.id, std::move(applied));
        }
    }

    void FindTextures(CorvexDB::udtMaterial& material, MaterialRow& row) const
    {
        for (const CorvexMaterial::Attribute layer : CorvexMaterial::kTextureFiles) {
            const auto& path = CorvexMaterial::RowOf(layer).path;
            const std::string stored = std::get<std::string>(path.get(material));
            if (const auto file = m_rows.textures.FileOf(stored)) {
                row.embedded.insert(stored);
                path.set(material, *file);
            }
        }
    }

    void ReadShapes()
    {
        Statement rows = m_database.Compile(
            "SELECT place, name, mesh, material, json FROM shapes ORDER BY place");
        while (rows.Step()) {
            ShapeState shape;
            m_rows.hasGaps |= rows.Integer(0) != std::ssize(m_rows.content.shapes);
            shape.name =
                QString::fromUtf8(rows.Text(1).data(), std::ssize(rows.Text(1))).toStdString();
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
            m_rows.meshes.emplace(mesh->id, MeshRow{id, mesh});
        }
        return mesh;
    }

    void ReadDocument()
    {
        SceneContent& content = m_rows.content;
        content.camera = CameraOfJson(Parsed("camera"));
        content.source = SourceOfJson(Parsed("source"), m_folder);
        content.textures =
            Value("textures") == "\"embedded\"" ? TexturePlace::Embedded : TexturePlace::Referenced;
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

    std::string Value(std::string_view key)
    {
        Statement value = m_database.Use("SELECT json FROM document WHERE key = ?1");
        value.Bind(1, key);
        return value.Step() ? std::string(value.Text(0)) : std::string();
    }

    /// Objects and arrays.
    std::string Parsed(const char* key)
    {
        std::string json = Value(key);
        if (!json.empty() && QJsonDocument::fromJson(QByteArray::fromStdString(json)).isNull()) {
            m_problems.push_back(std::string("Its ") + key + " cannot be read.");
        }
        return json;
    }

    Database& m_database;
    const std::string& m_folder;
    Rows& m_rows;
    std::vector<std::string>& m_problems;
    std::map<std::int64_t, AppliedMaterial> m_materials;
    std::map<std::int64_t, std::shared_ptr<const Mesh>> m_meshes;
};

void RequireHeader(const std::string& path)
{
    if (const std::string cause = HeaderCause(path, DocumentKind()); !cause.empty()) {
        ThrowDatabaseError(path, cause);
    }
}

std::string ObstacleToWriting(const std::string& path, const Database& database,
                              const CorvexMaterial::FileClaim& claim)
{
    if (!claim.Held()) {
        return "another window has it open";
    }
    if (std::string tooLong = LengthCause(path); !tooLong.empty()) {
        return tooLong;
    }
    if (CorvexMaterial::WriteRefusal(path) || database.IsReadOnly()) {
        return "you have no right to write to the file";
    }
    return CorvexMaterial::WriteRefusal(FolderOf(path))
               ? "you have no right to write to its folder, which saving needs"
               : "";
}

/// A file that is there is a plain one, and nobody else's.
CorvexMaterial::FileClaim ClaimToReplace(const std::string& file)
{
    CorvexMaterial::FileClaim claim;
    std::string cause = LengthCause(file);
    const CorvexMaterial::RegularFile there(file, std::numeric_limits<std::int64_t>::max());
    if (cause.empty() && !there.IsMissing()) {
        cause = there.Obstacle();
    }
    if (cause.empty() && !there.IsMissing()) {
        claim = CorvexMaterial::FileClaim(file);
        const std::error_code refusal = CorvexMaterial::WriteRefusal(file);
        cause = !claim.Held() ? "another window has it open" : refusal ? refusal.message() : "";
    }
    if (const auto refusal = CorvexMaterial::WriteRefusal(FolderOf(file));
        cause.empty() && refusal) {
        cause = "its folder cannot be written to: " + refusal.message();
    }
    if (!cause.empty()) {
        ThrowDatabaseError(file, cause);
    }
    return claim;
}

/// What a save that was cut off has left would be played back into the new file.
void SettleJournal(const std::string& file)
{
    const std::string journal = file + "-journal";
    const auto isLeft = [&journal] {
        std::error_code ignored;
        return std::filesystem::exists(std::filesystem::symlink_status(journal, ignored));
    };
    if (isLeft() && std::filesystem::exists(file)) {
        try {
            Database(file, Database::Mode::Existing).RemoveIdleJournal();
        } catch (const CorvexMaterial::Error&) {
            // It stays, then.
        }
    }
    if (isLeft()) {
        ThrowDatabaseError(file, "the journal '" + journal +
                                     "' does not belong to it; move it away and try again");
    }
}

}  // namespace

struct SceneDocument::Inside {
    std::string path;
    std::string folder;
    CorvexMaterial::FileClaim claim;  // let go of last: closing a file ends SQLite's locks on it
    Database database;
    Rows rows;
    std::string readOnlyReason;
    std::string identity;  ///< of the file when it was read or written last
};

SceneDocument::SceneDocument(std::unique_ptr<Inside> inside) : m_inside(std::move(inside)) {}
SceneDocument::SceneDocument(SceneDocument&&) noexcept = default;
SceneDocument& SceneDocument::operator=(SceneDocument&&) noexcept = default;
SceneDocument::~SceneDocument() = default;

SceneDocument::Opened SceneDocument::Open(const std::string& path, const std::string& pictureFolder,
                                          Use use)
{
    const std::string file = CanonicalPath(path);
    RequireHeader(file);
    try {
        CorvexMaterial::FileClaim claim =
            use == Use::Edit ? CorvexMaterial::FileClaim(file) : CorvexMaterial::FileClaim();
        auto inside =
            std::make_unique<Inside>(Inside{file,
                                            FolderOf(file),
                                            std::move(claim),
                                            Database(file, Database::Mode::Existing),
                                            Rows{{}, {}, DocumentTextures(pictureFolder), {}},
                                            {},
                                            {}});
        std::vector<std::string> problems;
        Transaction reading(inside->database, Transaction::Purpose::Read);
        CheckTables(inside->database, DocumentKind());
        Loading(inside->database, inside->folder, inside->rows, problems).Run();
        reading.Commit();
        inside->readOnlyReason = use == Use::Edit
                                     ? ObstacleToWriting(file, inside->database, inside->claim)
                                     : "it was opened to be looked at";
        if (inside->readOnlyReason.empty()) {
            inside->database.RemoveIdleJournal();
            std::error_code ignored;
            std::filesystem::remove(UnfinishedPath(file), ignored);
        }
        inside->identity = CorvexMaterial::FileIdentity(file);
        SceneContent content = inside->rows.content;
        return {SceneDocument(std::move(inside)), std::move(content), std::move(problems)};
    } catch (const CorvexMaterial::Error&) {
        RequireHeader(file);
        RefuseTruncated(file);
        throw;
    }
}

SceneDocument SceneDocument::Create(const std::string& path, const SceneContent& content,
                                    const std::string& pictureFolder, SceneDocument* former)
{
    const std::string file = CanonicalPath(path);
    if (former != nullptr && former->Path() == file) {
        former->m_inside->claim = {};
    }
    const std::string unfinished = UnfinishedPath(file);
    const CorvexMaterial::FileClaim replaced = ClaimToReplace(file);
    SettleJournal(file);
    std::error_code inTheWay;
    std::filesystem::remove(unfinished, inTheWay);
    if (inTheWay) {
        ThrowDatabaseError(file, "'" + unfinished + "' is in the way: " + inTheWay.message());
    }
    Rows rows{{}, {}, DocumentTextures(pictureFolder), {}};
    if (former != nullptr) {
        rows.textures.Follow(&former->m_inside->rows.textures, &former->m_inside->database);
    }
    try {
        Database database(unfinished, Database::Mode::New);
        // Nobody reads it before it has its name, and by then it is on the disk.
        database.Run("PRAGMA journal_mode = MEMORY");
        database.Run("PRAGMA synchronous = OFF");
        Transaction making(database, Transaction::Purpose::Write);
        MakeTables(database, DocumentKind());
        Saving(database, FolderOf(file), rows, content).Run();
        making.Commit();
        rows.textures.Follow(nullptr, nullptr);
        CorvexMaterial::MoveInPlace(unfinished, file);
    } catch (...) {
        std::error_code ignored;
        std::filesystem::remove(unfinished, ignored);
        throw;
    }
    CorvexMaterial::FileClaim claim(file);
    auto inside = std::make_unique<Inside>(Inside{file,
                                                  FolderOf(file),
                                                  std::move(claim),
                                                  Database(file, Database::Mode::Existing),
                                                  std::move(rows),
                                                  {},
                                                  {}});
    inside->readOnlyReason = ObstacleToWriting(file, inside->database, inside->claim);
    inside->identity = CorvexMaterial::FileIdentity(file);
    return SceneDocument(std::move(inside));
}

const std::string& SceneDocument::Path() const
{
    return m_inside->path;
}

const std::string& SceneDocument::ReadOnlyReason() const
{
    return m_inside->readOnlyReason;
}

bool SceneDocument::IsChangedByOthers()
{
    return CorvexMaterial::FileIdentity(m_inside->path) != m_inside->identity;
}

void SceneDocument::Save(const SceneContent& content)
{
    if (!ReadOnlyReason().empty()) {
        ThrowDatabaseError(Path(), ReadOnlyReason());
    }
    Rows rows = m_inside->rows;
    Transaction writing(m_inside->database, Transaction::Purpose::Write);
    Saving(m_inside->database, m_inside->folder, rows, content).Run();
    writing.Commit();
    m_inside->rows = std::move(rows);
    m_inside->identity = CorvexMaterial::FileIdentity(Path());
}

std::vector<std::string> SceneDocument::StructureProblems()
{
    std::vector<std::string> problems;
    Statement check = m_inside->database.Use("PRAGMA integrity_check(20)");
    while (check.Step()) {
        if (check.Text(0) != "ok") {
            problems.emplace_back(check.Text(0));
        }
    }
    return problems;
}

SourceModel SourceModelAt(const std::string& path)
{
    const QFileInfo file(QString::fromStdString(path));
    const std::string absolute = file.absoluteFilePath().toStdString();
    return file.isFile()
               ? SourceModel{absolute, file.size(), file.lastModified().toUTC().toMSecsSinceEpoch()}
               : SourceModel{absolute, 0, 0};
}

std::string UnfinishedPath(const std::string& path)
{
    const std::filesystem::path file(path);
    return (file.parent_path() / ('.' + file.filename().string() + ".saving")).string();
}

}  // namespace studio
