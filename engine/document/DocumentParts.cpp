#include "DocumentParts.h"

#include "DatabaseError.h"
#include "JsonFields.h"
#include "MaterialText.h"
#include "StoredPath.h"
#include <CorvexMaterial/Status.h>

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

namespace studio {
namespace {

using CorvexMaterial::UnknownFields;
using CorvexMaterial::WithUnknown;

static_assert(std::endian::native == std::endian::little,
              "documents hold numbers as they are here");
static_assert(sizeof(Vertex) == 32 && std::is_trivially_copyable_v<Vertex>);

/// A coordinate beyond this is taken for damage.
constexpr float kLargestCoordinate = 1.0e9F;

QJsonObject ObjectOf(std::string_view json)
{
    return QJsonDocument::fromJson(
               QByteArray::fromRawData(json.data(), static_cast<qsizetype>(json.size())))
        .object();
}

QByteArray Compact(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

template <typename Numbers>
QJsonArray ArrayOf(const Numbers& numbers)
{
    QJsonArray array;
    for (const auto number : numbers) {
        array.append(static_cast<double>(number));
    }
    return array;
}

/// Left alone, and false, unless all numbers are there and can be used.
template <typename Number>
bool ReadNumbers(const QJsonValue& json, std::span<Number> numbers)
{
    const QJsonArray array = json.toArray();
    const auto isNumber = [](const QJsonValue& value) {
        return value.isDouble() && std::abs(value.toDouble()) <= 1.0e30;
    };
    const bool isFine = array.size() == std::ssize(numbers) && std::ranges::all_of(array, isNumber);
    if (isFine) {
        std::ranges::transform(array, numbers.begin(), [](const QJsonValue& value) {
            return static_cast<Number>(value.toDouble());
        });
    }
    return isFine;
}

template <typename Item>
std::span<const char> BytesOf(const std::vector<Item>& items)
{
    const auto bytes = std::as_bytes(std::span(items));
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

template <typename Item>
std::vector<Item> ReadItems(Database& database, ChunkOwner kind, std::int64_t owner,
                            std::int64_t count)
{
    // Before so much memory is taken.
    Statement stored =
        database.Use("SELECT sum(length(bytes)) FROM chunks WHERE kind = ?1 AND owner = ?2");
    stored.Bind(1, static_cast<std::int64_t>(kind)).Bind(2, owner);
    const std::int64_t there = stored.Step() ? stored.Integer(0) : 0;
    if (count < 0 || there % static_cast<std::int64_t>(sizeof(Item)) != 0 ||
        there / static_cast<std::int64_t>(sizeof(Item)) != count) {
        ThrowDatabaseError(database.Path(), "a mesh is damaged");
    }
    std::vector<Item> items(static_cast<std::size_t>(count));
    const auto bytes = std::as_writable_bytes(std::span(items));
    ReadChunks(database, kind, owner, {reinterpret_cast<char*>(bytes.data()), bytes.size()});
    return items;
}

bool IsUsable(const Vertex& vertex)
{
    const auto isFine = [](float number) { return std::abs(number) <= kLargestCoordinate; };
    return std::ranges::all_of(vertex.position, isFine) &&
           std::ranges::all_of(vertex.normal, isFine) && std::ranges::all_of(vertex.uv, isFine);
}

constexpr std::ptrdiff_t kMostViews = 1000;

constexpr QLatin1String kName("name");
constexpr QLatin1String kMatrix("matrix");
constexpr QLatin1String kMoved("moved");
constexpr QLatin1String kFlat("flat");
constexpr QLatin1String kWrapped("wrapped");
constexpr QLatin1String kHidden("hidden");
constexpr QLatin1String kLocked("locked");

constexpr QLatin1String kLink("link");
constexpr QLatin1String kLibrary("library");
constexpr QLatin1String kEntry("entry");
constexpr QLatin1String kRevision("revision");
constexpr QLatin1String kTaken("taken");

QJsonObject JsonOfLink(const LibraryLink& link, const std::string& folder)
{
    return {{kLibrary, QString::fromStdString(StoredPath(link.library, folder))},
            {kEntry, static_cast<double>(link.entry)},
            {kName, QString::fromStdString(link.name)},
            {kRevision, QString::fromStdString(link.revision)},
            {kTaken, ObjectOf(JsonOfMaterial(link.taken, folder))}};
}

/// Null for what is no link.
std::shared_ptr<const LibraryLink> LinkOfJson(const QJsonObject& json, const std::string& folder)
{
    const std::string library = json.value(kLibrary).toString().toStdString();
    if (library.empty()) {
        return nullptr;
    }
    auto link = std::make_shared<LibraryLink>();
    link->library = PathOfStored(library, folder);
    link->entry = static_cast<std::int64_t>(json.value(kEntry).toDouble());
    link->name = json.value(kName).toString().toStdString();
    link->revision = json.value(kRevision).toString().toStdString();
    link->taken =
        MaterialOfJson(Compact(json.value(kTaken).toObject()).toStdString(), folder).material;
    return link;
}

QJsonObject FieldsOfStamp(const FileStamp& file, const std::string& folder)
{
    return {{QStringLiteral("path"), QString::fromStdString(StoredPath(file.path, folder))},
            {QStringLiteral("bytes"), static_cast<double>(file.bytes)},
            {QStringLiteral("modified"), static_cast<double>(file.modified)}};
}

FileStamp StampOfFields(const QJsonObject& object, const std::string& folder)
{
    const std::string path = object.value(QLatin1String("path")).toString().toStdString();
    return {path.empty() ? path : PathOfStored(path, folder),
            static_cast<std::int64_t>(object.value(QLatin1String("bytes")).toDouble()),
            static_cast<std::int64_t>(object.value(QLatin1String("modified")).toDouble())};
}

QJsonObject FieldsOfCamera(const Camera& camera)
{
    QJsonObject object{
        {QStringLiteral("target"),
         ArrayOf(std::array{camera.target.x(), camera.target.y(), camera.target.z()})},
        {QStringLiteral("yaw"), static_cast<double>(camera.yawDegrees)},
        {QStringLiteral("pitch"), static_cast<double>(camera.pitchDegrees)},
        {QStringLiteral("distance"), static_cast<double>(camera.distance)},
        {QStringLiteral("fieldOfView"), static_cast<double>(camera.fovDegrees)}};
    if (camera.lens == Lens::Parallel) {
        object.insert(QStringLiteral("parallel"), true);
    }
    return object;
}

std::optional<Camera> CameraOfFields(const QJsonObject& object)
{
    std::array<float, 3> target{};
    ReadNumbers<float>(object.value(QLatin1String("target")), target);
    const auto number = [&object](const char* key) {
        return static_cast<float>(object.value(QLatin1String(key)).toDouble());
    };
    const Camera camera{{target[0], target[1], target[2]},
                        number("yaw"),
                        number("pitch"),
                        number("distance"),
                        number("fieldOfView"),
                        object.value(QLatin1String("parallel")).toBool() ? Lens::Parallel
                                                                         : Lens::Perspective};
    const bool isUsable =
        camera.distance > 0.0F && camera.distance <= kLargestCoordinate &&
        std::abs(camera.pitchDegrees) <= 90.0F && std::abs(camera.yawDegrees) <= 1.0e6F &&
        camera.fovDegrees >= 1.0F && camera.fovDegrees <= 170.0F &&
        std::ranges::all_of(target,
                            [](float axis) { return std::abs(axis) <= kLargestCoordinate; });
    return isUsable ? std::optional(camera) : std::nullopt;
}

}  // namespace

void WriteChunks(Database& database, ChunkOwner kind, std::int64_t owner,
                 std::span<const char> bytes)
{
    RemoveChunks(database, kind, owner);
    for (std::int64_t part = 0; !bytes.empty(); ++part) {
        const auto piece = bytes.first(std::min(bytes.size(), kChunkBytes));
        database.Use("INSERT INTO chunks (kind, owner, part, bytes) VALUES (?1, ?2, ?3, ?4)")
            .Bind(1, static_cast<std::int64_t>(kind))
            .Bind(2, owner)
            .Bind(3, part)
            .BindBlob(4, {piece.data(), piece.size()})
            .Run();
        bytes = bytes.subspan(piece.size());
    }
}

void RemoveChunks(Database& database, ChunkOwner kind, std::int64_t owner)
{
    database.Use("DELETE FROM chunks WHERE kind = ?1 AND owner = ?2")
        .Bind(1, static_cast<std::int64_t>(kind))
        .Bind(2, owner)
        .Run();
}

void ReadChunks(Database& database, ChunkOwner kind, std::int64_t owner, std::span<char> bytes)
{
    Statement pieces =
        database.Use("SELECT bytes FROM chunks WHERE kind = ?1 AND owner = ?2 ORDER BY part");
    pieces.Bind(1, static_cast<std::int64_t>(kind)).Bind(2, owner);
    while (pieces.Step()) {
        const std::string_view piece = pieces.Blob(0);
        if (piece.size() > bytes.size()) {
            break;
        }
        std::ranges::copy(piece, bytes.begin());
        bytes = bytes.subspan(piece.size());
    }
    if (!bytes.empty()) {
        ThrowDatabaseError(database.Path(), "parts of it are missing");
    }
}

void WriteMesh(Database& database, std::int64_t id, const Mesh& mesh)
{
    database.Use("INSERT OR REPLACE INTO meshes (id, vertices, indices) VALUES (?1, ?2, ?3)")
        .Bind(1, id)
        .Bind(2, std::ssize(mesh.vertices))
        .Bind(3, std::ssize(mesh.indices))
        .Run();
    WriteChunks(database, ChunkOwner::Vertices, id, BytesOf(mesh.vertices));
    WriteChunks(database, ChunkOwner::Indices, id, BytesOf(mesh.indices));
}

std::shared_ptr<const Mesh> ReadMesh(Database& database, std::int64_t id)
{
    std::int64_t vertexCount = 0;
    std::int64_t indexCount = 0;
    {
        Statement counts = database.Use("SELECT vertices, indices FROM meshes WHERE id = ?1");
        counts.Bind(1, id);
        if (!counts.Step()) {
            ThrowDatabaseError(database.Path(), "a mesh is missing");
        }
        vertexCount = counts.Integer(0);
        indexCount = counts.Integer(1);
    }
    auto vertices = ReadItems<Vertex>(database, ChunkOwner::Vertices, id, vertexCount);
    if (!std::ranges::all_of(vertices, IsUsable)) {
        ThrowDatabaseError(database.Path(), "a mesh is damaged");
    }
    return MakeMesh(std::move(vertices),
                    ReadItems<std::uint32_t>(database, ChunkOwner::Indices, id, indexCount));
}

std::string ValueOf(Database& database, std::string_view key)
{
    Statement value = database.Use("SELECT json FROM document WHERE key = ?1");
    value.Bind(1, key);
    return value.Step() ? std::string(value.Text(0)) : std::string();
}

QByteArray JsonOfShape(const ShapeState& shape)
{
    QJsonObject json;
    json.insert(kMatrix, ArrayOf(std::span(shape.placement.constData(), 16)));
    if (shape.moved != std::array<double, 3>{}) {
        json.insert(kMoved, ArrayOf(shape.moved));
    }
    json.insert(kFlat, shape.option == ShapeOption::Flat);
    json.insert(kWrapped, shape.applied.coordinates == CorvexSG::CoordinateMode::FromWrap);
    if (shape.flags.hidden) {
        json.insert(kHidden, true);
    }
    if (shape.flags.locked) {
        json.insert(kLocked, true);
    }
    return Compact(json);
}

bool ReadShape(std::string_view json, ShapeState& shape)
{
    const QJsonObject object = ObjectOf(json);
    std::array<float, 16> matrix{};
    std::copy_n(shape.placement.constData(), matrix.size(), matrix.begin());
    const bool hasPlace = ReadNumbers<float>(object.value(kMatrix), matrix);
    // Columns stand one behind the other, here and there.
    std::ranges::copy(matrix, shape.placement.data());
    ReadNumbers<double>(object.value(kMoved), shape.moved);
    shape.option = object.value(kFlat).toBool() ? ShapeOption::Flat : ShapeOption::Smooth;
    shape.applied.coordinates = object.value(kWrapped).toBool()
                                    ? CorvexSG::CoordinateMode::FromWrap
                                    : CorvexSG::CoordinateMode::FromMesh;
    shape.flags = {object.value(kHidden).toBool(), object.value(kLocked).toBool()};
    return hasPlace;
}

QByteArray JsonOfCamera(const Camera& camera)
{
    return Compact(FieldsOfCamera(camera));
}

std::optional<Camera> CameraOfJson(std::string_view json)
{
    return CameraOfFields(ObjectOf(json));
}

QByteArray JsonOfViews(const std::vector<NamedView>& views)
{
    QJsonArray array;
    for (const NamedView& view : views) {
        QJsonObject object = FieldsOfCamera(view.camera);
        object.insert(kName, QString::fromStdString(view.name));
        array.append(object);
    }
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

std::vector<NamedView> ViewsOfJson(std::string_view json)
{
    std::vector<NamedView> views;
    const auto bytes = QByteArray::fromRawData(json.data(), static_cast<qsizetype>(json.size()));
    for (const QJsonValue view : QJsonDocument::fromJson(bytes).array()) {
        const QJsonObject object = view.toObject();
        const std::string name = object.value(kName).toString().toStdString();
        const auto camera = CameraOfFields(object);
        if (!name.empty() && camera && std::ssize(views) < kMostViews) {
            views.push_back({name, *camera});
        }
    }
    return views;
}

QByteArray JsonOfSource(const SourceModel& source, const std::string& folder)
{
    QJsonObject object = FieldsOfStamp(source, folder);
    QJsonArray others;
    for (const FileStamp& other : source.others) {
        others.append(FieldsOfStamp(other, folder));
    }
    object.insert(QLatin1String("others"), others);
    return Compact(object);
}

SourceModel SourceOfJson(std::string_view json, const std::string& folder)
{
    const QJsonObject object = ObjectOf(json);
    SourceModel source{StampOfFields(object, folder)};
    for (const QJsonValue other : object.value(QLatin1String("others")).toArray()) {
        source.others.push_back(StampOfFields(other.toObject(), folder));
    }
    return source;
}

QByteArray JsonOfSceneMaterial(const CorvexDB::udtMaterial& material, const SceneMaterial& identity,
                               const std::string& folder)
{
    QJsonObject json =
        WithUnknown(ObjectOf(JsonOfMaterial(material, folder)), ObjectOf(identity.unknown));
    if (identity.link != nullptr) {
        json.insert(kLink, JsonOfLink(*identity.link, folder));
    }
    return Compact(json);
}

AppliedMaterial SceneMaterialOfJson(std::string_view json, const std::string& name,
                                    std::int64_t mode, const std::string& folder,
                                    std::vector<std::string>& problems)
{
    MaterialReading reading;
    try {
        reading = MaterialOfJson(json, folder);
    } catch (const CorvexMaterial::Error& error) {
        reading.problems = {error.what()};
    }
    for (const std::string& problem : reading.problems) {
        problems.push_back("Material \"" + name + "\": " + problem);
    }
    auto gathered = std::make_shared<CorvexSG::GatheredMaterial>();
    gathered->material = std::move(reading.material);
    constexpr auto kLastMode = static_cast<std::int64_t>(CorvexDB::ApplyMode::FilesOnly);
    if (mode >= 0 && mode <= kLastMode) {
        gathered->applyMode = static_cast<CorvexDB::ApplyMode>(mode);
    }
    QJsonObject unknown = UnknownFields(ObjectOf(json));
    const QJsonValue link = unknown.take(kLink);
    return {std::move(gathered), CorvexSG::CoordinateMode::FromMesh,
            std::make_shared<SceneMaterial>(SceneMaterial{
                name, unknown.isEmpty() ? std::string() : Compact(unknown).toStdString(),
                LinkOfJson(link.toObject(), folder)})};
}

}  // namespace studio
