#include "ModelPacking.h"

#include "ByteStream.h"
#include "ShapeNames.h"
#include <CorvexMaterial/Schema.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <variant>

namespace studio {

namespace {

using CorvexDB::udtMaterial;
using CorvexMaterial::AttributeRow;
using CorvexMaterial::AttributeValue;

constexpr std::uint32_t kMagic = 0x4D585643;  // "CVXM"
constexpr std::uint32_t kVersion = 9;
constexpr std::uint32_t kEnd = 0x21444E45;  // "END!"
constexpr std::uint8_t kLastAttribute = 0xFF;

// The fewest bytes that one of each takes, so that a forged count is refused before it is believed.
constexpr std::size_t kSmallestMaterial = sizeof(std::uint32_t) + sizeof(kLastAttribute);
constexpr std::size_t kSmallestRow = 4 * sizeof(std::uint32_t) + 1;
constexpr std::size_t kSmallestMesh = 4 * sizeof(std::uint32_t) + sizeof(VertexColours);
constexpr std::size_t kSmallestPicture = 2 * sizeof(std::uint32_t);
constexpr std::size_t kSmallestShape = 2 * sizeof(std::uint32_t) + 16 * sizeof(float);

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

template <typename Value>
void PutValue(ByteWriter& writer, const Value& value)
{
    writer.Put(value);
}

void PutValue(ByteWriter& writer, const std::string& text)
{
    writer.PutText(text);
}

template <typename Value>
void GetValue(ByteReader& reader, Value& value)
{
    value = reader.Get<Value>();
}

void GetValue(ByteReader& reader, std::string& text)
{
    text = reader.GetText();
}

void GetValue(ByteReader& reader, bool& flag)
{
    flag = reader.Get<std::uint8_t>() != 0;
}

/// Lists are what no file of another program has.
template <typename Value>
constexpr bool kIsPacked = std::is_arithmetic_v<Value> || std::is_same_v<Value, std::string>;

/// What differs from a new material, attribute by attribute.
void Put(ByteWriter& writer, const NamedMaterial& named)
{
    static const udtMaterial kNew;
    writer.PutText(named.name);
    for (const AttributeRow& row : CorvexMaterial::AttributeRows()) {
        if (!row.path.LeadsIntoRecord() || row.path.same(named.material, kNew)) {
            continue;
        }
        std::visit(
            [&](const auto& value) {
                if constexpr (kIsPacked<std::remove_cvref_t<decltype(value)>>) {
                    writer.Put(row.attribute);
                    PutValue(writer, value);
                }
            },
            row.path.get(named.material));
    }
    writer.Put(kLastAttribute);
}

void RequireInRange(const AttributeRow& row, double value)
{
    const bool hasRange = row.range.least < row.range.most;
    Require(!hasRange || (value >= row.range.least && value <= row.range.most),
            "a material value is out of range");
}

void GetAttribute(ByteReader& reader, const AttributeRow& row, udtMaterial& material)
{
    AttributeValue value = row.path.get(material);
    std::visit(
        [&](auto& held) {
            using Held = std::remove_cvref_t<decltype(held)>;
            if constexpr (kIsPacked<Held>) {
                GetValue(reader, held);
            } else {
                Require(false, "a material has an unknown attribute");
            }
            if constexpr (std::is_arithmetic_v<Held>) {
                RequireInRange(row, static_cast<double>(held));
            }
        },
        value);
    row.path.set(material, value);
}

NamedMaterial GetMaterial(ByteReader& reader)
{
    NamedMaterial named{ReadableName(reader.GetText(), "Material"), {}};
    const auto& rows = CorvexMaterial::AttributeRows();
    for (auto next = reader.Get<std::uint8_t>(); next != kLastAttribute;
         next = reader.Get<std::uint8_t>()) {
        Require(next < rows.size() && rows[next].path.LeadsIntoRecord(),
                "a material has an unknown attribute");
        GetAttribute(reader, rows[next], named.material);
    }
    return named;
}

void Put(ByteWriter& writer, const ReportRow& row)
{
    writer.PutText(row.material);
    writer.PutText(row.property);
    writer.Put(row.outcome);
    writer.PutText(row.note);
    writer.PutText(row.kind);
}

ReportRow GetRow(ByteReader& reader)
{
    ReportRow row{reader.GetText(), reader.GetText(), {}, {}};
    const auto outcome = reader.Get<std::uint8_t>();
    Require(outcome < kOutcomeCount, "a report is damaged");
    row.outcome = static_cast<Outcome>(outcome);
    row.note = reader.GetText();
    row.kind = reader.GetText();
    return row;
}

void Put(ByteWriter& writer, const ImportedMesh& mesh)
{
    writer.Put(static_cast<std::uint32_t>(mesh.material));
    writer.Put(static_cast<std::uint32_t>(mesh.hasCoordinates));
    writer.Put(mesh.sourcePrimitive);
    writer.Put(mesh.colours);
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
    result.sourcePrimitive = reader.Get<std::int32_t>();
    result.colours = reader.Get<VertexColours>();
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
    writer.Put(shape.sourceNode);
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
    shape.sourceNode = reader.Get<std::int32_t>();
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

void Put(ByteWriter& writer, const std::string& text)
{
    writer.PutText(text);
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
    putList(model.report.Rows());
    putList(model.meshes);
    putList(model.shapes);
    putList(model.pictures);
    putList(model.files);
    writer.Put(static_cast<std::uint32_t>(model.said.size()));
    writer.PutAll(model.said);
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
    for (std::size_t left = reader.GetCount(kSmallestRow); left > 0; --left) {
        model.report.Add(GetRow(reader));
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
    for (std::size_t left = reader.GetCount(sizeof(std::uint32_t)); left > 0; --left) {
        model.files.push_back(reader.GetText());
    }
    model.said = reader.GetAll<SaidColour>(reader.Get<std::uint32_t>());
    Require(model.said.empty() || model.said.size() == model.materials.size(),
            "a material has no colour of its own");
    Require(reader.Get<std::uint32_t>() == kEnd && reader.AtEnd(), "the data is damaged");
    return model;
}

}  // namespace studio
