#include "GltfSpheres.h"

#include "ParametricMesh.h"

#include <QJsonArray>
#include <QJsonObject>

#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <numbers>

namespace studio {
namespace {

// Numbers of the format.
constexpr int kFloat = 5126;
constexpr int kUnsignedShort = 5123;
constexpr int kVertexBuffer = 34962;
constexpr int kIndexBuffer = 34963;

constexpr Grid kCoarse{24, 12};

struct SphereData {
    QByteArray bytes;  ///< positions, normals, coordinates, indices, one after the other
    int vertices = 0;
    int indices = 0;
};

template <typename Value>
void Append(QByteArray& bytes, Value value)
{
    static_assert(std::endian::native == std::endian::little, "the format is little-endian");
    std::array<char, sizeof(Value)> raw{};
    std::memcpy(raw.data(), &value, sizeof(Value));
    bytes.append(raw.data(), raw.size());
}

std::shared_ptr<const Mesh> CoarseSphere()
{
    const Surface sphere = [](float u, float v) {
        const float longitude = 2.0F * std::numbers::pi_v<float> * u;
        const float latitude = std::numbers::pi_v<float> * (v - 0.5F);
        return QVector3D(std::cos(latitude) * std::sin(longitude), std::sin(latitude),
                         std::cos(latitude) * std::cos(longitude));
    };
    return ParametricMesh(sphere, kCoarse);
}

SphereData DataOf(const Mesh& mesh)
{
    SphereData data;
    data.vertices = static_cast<int>(mesh.vertices.size());
    data.indices = static_cast<int>(mesh.indices.size());
    for (const auto field : {&Vertex::position, &Vertex::normal}) {
        for (const Vertex& vertex : mesh.vertices) {
            for (const float part : vertex.*field) {
                Append(data.bytes, part);
            }
        }
    }
    for (const Vertex& vertex : mesh.vertices) {
        Append(data.bytes, vertex.uv[0]);
        Append(data.bytes, 1.0F - vertex.uv[1]);  // the format counts from the top
    }
    for (const std::uint32_t index : mesh.indices) {
        Append(data.bytes, static_cast<std::uint16_t>(index));
    }
    return data;
}

QJsonObject View(qsizetype offset, qsizetype length, int target)
{
    return {{"buffer", 0}, {"byteOffset", offset}, {"byteLength", length}, {"target", target}};
}

QJsonArray ViewsOf(const SphereData& data)
{
    const qsizetype vector = qsizetype{data.vertices} * 12;
    const qsizetype pair = qsizetype{data.vertices} * 8;
    return {View(0, vector, kVertexBuffer), View(vector, vector, kVertexBuffer),
            View(2 * vector, pair, kVertexBuffer),
            View(2 * vector + pair, qsizetype{data.indices} * 2, kIndexBuffer)};
}

QJsonObject Accessor(int view, int type, int count, const char* shape)
{
    return {{"bufferView", view}, {"componentType", type}, {"count", count}, {"type", shape}};
}

QJsonArray AccessorsOf(const SphereData& data, const Mesh& mesh)
{
    QJsonObject positions = Accessor(0, kFloat, data.vertices, "VEC3");
    std::array<float, 3> low = mesh.vertices.front().position;
    std::array<float, 3> high = low;
    for (const Vertex& vertex : mesh.vertices) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            low[axis] = std::min(low[axis], vertex.position[axis]);
            high[axis] = std::max(high[axis], vertex.position[axis]);
        }
    }
    positions["min"] = QJsonArray{double{low[0]}, double{low[1]}, double{low[2]}};
    positions["max"] = QJsonArray{double{high[0]}, double{high[1]}, double{high[2]}};
    return {positions, Accessor(1, kFloat, data.vertices, "VEC3"),
            Accessor(2, kFloat, data.vertices, "VEC2"),
            Accessor(3, kUnsignedShort, data.indices, "SCALAR")};
}

QJsonObject SphereWith(int material, const QJsonValue& name)
{
    const QJsonObject attributes{{"POSITION", 0}, {"NORMAL", 1}, {"TEXCOORD_0", 2}};
    const QJsonObject primitive{{"attributes", attributes}, {"indices", 3}, {"material", material}};
    return {{"name", name}, {"primitives", QJsonArray{primitive}}};
}

QJsonObject NodeAt(int index, int columns, const QJsonValue& name)
{
    constexpr double kDistance = 2.5;
    const QJsonArray place{kDistance * (index % columns), -kDistance * (index / columns), 0};
    return {{"name", name}, {"mesh", index}, {"translation", place}};
}

}  // namespace

void PutSpheres(QJsonObject& document, const QJsonArray& materials)
{
    const auto mesh = CoarseSphere();
    const SphereData data = DataOf(*mesh);
    const int count = static_cast<int>(materials.size());
    const int columns = static_cast<int>(std::ceil(std::sqrt(count)));
    QJsonArray meshes;
    QJsonArray nodes;
    QJsonArray roots;
    for (int index = 0; index < count; ++index) {
        const QJsonValue name = materials[index].toObject()["name"];
        meshes.append(SphereWith(index, name));
        nodes.append(NodeAt(index, columns, name));
        roots.append(index);
    }
    document["scene"] = 0;
    document["scenes"] = QJsonArray{QJsonObject{{"nodes", roots}}};
    document["nodes"] = nodes;
    document["meshes"] = meshes;
    document["accessors"] = AccessorsOf(data, *mesh);
    document["bufferViews"] = ViewsOf(data);
    const QString uri = "data:application/octet-stream;base64," + data.bytes.toBase64();
    document["buffers"] = QJsonArray{QJsonObject{{"byteLength", data.bytes.size()}, {"uri", uri}}};
}

}  // namespace studio
