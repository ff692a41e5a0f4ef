#include "studio/import/ModelFile.h"

#include "studio/import/ByteStream.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace studio {

namespace {

using CorvexDB::udtMaterial;

constexpr std::uint32_t kMagic = 0x4D585643;  // "CVXM"
constexpr std::uint32_t kVersion = 6;
constexpr std::uint32_t kEnd = 0x21444E45;  // "END!"

// The fewest bytes that one of each takes, so that a forged count is refused before it is believed.
constexpr std::size_t kSmallestMaterial = 9 * sizeof(std::int32_t);
constexpr std::size_t kSmallestMesh = 4 * sizeof(std::uint32_t);
constexpr std::size_t kSmallestPicture = 2 * sizeof(std::uint32_t);
constexpr std::size_t kSmallestShape = 2 * sizeof(std::uint32_t) + 16 * sizeof(float);

// Those that a model's material can have.
constexpr std::array kLayers{&CorvexDB::TextureFiles::primary, &CorvexDB::TextureFiles::alpha,
                             &CorvexDB::TextureFiles::bump, &CorvexDB::TextureFiles::specular};

void Require(bool holds, const char* reason)
{
    if (!holds) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed, reason);
    }
}

bool Reasonable(float value)
{
    return std::abs(value) <= kLargestCoordinate;  // false for NaN too
}

bool Reasonable(const Vertex& vertex)
{
    const auto all = [](const auto& values) {
        return std::ranges::all_of(values, [](float value) { return Reasonable(value); });
    };
    return all(vertex.position) && all(vertex.normal) && all(vertex.uv);
}

std::int32_t GetInRange(ByteReader& reader, std::int32_t most)
{
    const auto value = reader.Get<std::int32_t>();
    Require(value >= 0 && value <= most, "a material value is out of range");
    return value;
}

void Put(ByteWriter& writer, const udtMaterial& material)
{
    writer.Put(material.Color);
    writer.Put(material.Emissive);
    writer.Put(material.Specular);
    writer.Put(material.Transparency);
    writer.Put(static_cast<std::int32_t>(material.DoubleSided));
    writer.Put(material.AlphaTest);
    writer.Put(material.AlphaTestReference);
    writer.Put(static_cast<std::int32_t>(material.RayTrace.Metallic));
    writer.Put(static_cast<std::int32_t>(material.RayTrace.Reflection));
    for (const auto layer : kLayers) {
        writer.PutText(material.Textures.*layer);
    }
}

udtMaterial GetMaterial(ByteReader& reader)
{
    udtMaterial material;
    material.Color = GetInRange(reader, CorvexMaterial::kWhite);
    material.Emissive = GetInRange(reader, 100);
    material.Specular = GetInRange(reader, 100);
    material.Transparency = GetInRange(reader, 100);
    material.DoubleSided = GetInRange(reader, 1) == 1;
    material.AlphaTest = GetInRange(reader, 7);
    material.AlphaTestReference = GetInRange(reader, 255);
    material.RayTrace.Metallic = GetInRange(reader, 1) == 1;
    material.RayTrace.Reflection = static_cast<float>(GetInRange(reader, 10));
    for (const auto layer : kLayers) {
        material.Textures.*layer = reader.GetText();
    }
    return material;
}

void Put(ByteWriter& writer, const ImportedMesh& mesh)
{
    writer.Put(static_cast<std::uint32_t>(mesh.material));
    writer.Put(static_cast<std::uint32_t>(mesh.hasCoordinates));
    writer.Put(static_cast<std::uint32_t>(mesh.mesh->vertices.size()));
    writer.Put(static_cast<std::uint32_t>(mesh.mesh->indices.size()));
    writer.PutAll(mesh.mesh->vertices);
    writer.PutAll(mesh.mesh->indices);
}

ImportedMesh GetMesh(ByteReader& reader, std::size_t materialCount)
{
    ImportedMesh result;
    result.material = reader.Get<std::uint32_t>();
    Require(result.material < materialCount, "a mesh names a material that does not exist");
    result.hasCoordinates = reader.Get<std::uint32_t>() != 0;
    const std::size_t vertexCount = reader.Get<std::uint32_t>();
    const std::size_t indexCount = reader.Get<std::uint32_t>();
    Require(indexCount % 3 == 0, "a mesh has an incomplete triangle");
    auto vertices = reader.GetAll<Vertex>(vertexCount);
    auto indices = reader.GetAll<std::uint32_t>(indexCount);
    Require(std::ranges::all_of(indices, [&](std::uint32_t index) { return index < vertexCount; }),
            "a triangle names a vertex that does not exist");
    Require(std::ranges::all_of(vertices, [](const Vertex& vertex) { return Reasonable(vertex); }),
            "a mesh holds numbers that are no coordinates");
    result.mesh = MakeMesh(std::move(vertices), std::move(indices));
    return result;
}

void Put(ByteWriter& writer, const ImportedShape& shape)
{
    writer.PutText(shape.name);
    writer.Put(static_cast<std::uint32_t>(shape.mesh));
    std::array<float, 16> rows{};
    shape.worldFromMesh.copyDataTo(rows.data());
    writer.Put(rows);
}

ImportedShape GetShape(ByteReader& reader, std::size_t meshCount)
{
    ImportedShape shape;
    shape.name = reader.GetText();
    shape.mesh = reader.Get<std::uint32_t>();
    Require(shape.mesh < meshCount, "a shape names a mesh that does not exist");
    const auto rows = reader.Get<std::array<float, 16>>();
    Require(std::ranges::all_of(rows, [](float value) { return Reasonable(value); }),
            "a shape has no usable position");
    shape.worldFromMesh = QMatrix4x4(rows.data());
    return shape;
}

void Put(ByteWriter& writer, const EmbeddedPicture& picture)
{
    writer.PutText({picture.bytes.constData(), static_cast<std::size_t>(picture.bytes.size())});
    writer.Put(static_cast<std::uint32_t>(picture.wearers.size()));
    for (const std::size_t wearer : picture.wearers) {
        writer.Put(static_cast<std::uint32_t>(wearer));
    }
}

EmbeddedPicture GetPicture(ByteReader& reader, std::size_t materialCount)
{
    EmbeddedPicture picture;
    const auto bytes = reader.GetAll<char>(reader.Get<std::uint32_t>());
    picture.bytes = {bytes.data(), static_cast<qsizetype>(bytes.size())};
    const auto wearers = reader.GetAll<std::uint32_t>(reader.GetCount(sizeof(std::uint32_t)));
    picture.wearers.assign(wearers.begin(), wearers.end());
    Require(
        std::ranges::all_of(wearers, [&](std::uint32_t index) { return index < materialCount; }),
        "a picture names a material that does not exist");
    return picture;
}

}  // namespace

QByteArray PackModel(const ImportedModel& model)
{
    ByteWriter writer;
    writer.Put(kMagic);
    writer.Put(kVersion);
    const auto putList = [&writer](const auto& list) {
        writer.Put(static_cast<std::uint32_t>(list.size()));
        for (const auto& item : list) {
            Put(writer, item);
        }
    };
    putList(model.materials);
    putList(model.meshes);
    putList(model.shapes);
    putList(model.pictures);
    writer.Put(static_cast<std::uint32_t>(model.manyColours));
    writer.PutText(model.refusedFile);
    writer.Put(kEnd);
    return writer.Take();
}

ImportedModel UnpackModel(std::span<const std::byte> bytes)
{
    ByteReader reader(bytes);
    Require(reader.Get<std::uint32_t>() == kMagic, "the data is not a model");
    Require(reader.Get<std::uint32_t>() == kVersion, "the data is of another version");
    ImportedModel model;
    for (std::size_t left = reader.GetCount(kSmallestMaterial); left > 0; --left) {
        model.materials.push_back(GetMaterial(reader));
    }
    for (std::size_t left = reader.GetCount(kSmallestMesh); left > 0; --left) {
        model.meshes.push_back(GetMesh(reader, model.materials.size()));
    }
    for (std::size_t left = reader.GetCount(kSmallestShape); left > 0; --left) {
        model.shapes.push_back(GetShape(reader, model.meshes.size()));
    }
    for (std::size_t left = reader.GetCount(kSmallestPicture); left > 0; --left) {
        model.pictures.push_back(GetPicture(reader, model.materials.size()));
    }
    model.manyColours = reader.Get<std::uint32_t>() != 0;
    model.refusedFile = reader.GetText();
    Require(reader.Get<std::uint32_t>() == kEnd && reader.AtEnd(), "the data is damaged");
    return model;
}

}  // namespace studio
