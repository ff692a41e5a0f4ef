#include "GltfBuffer.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

namespace studio {
namespace {

static_assert(std::endian::native == std::endian::little, "the format is little-endian");

// Numbers of the format.
constexpr int kFloat = 5126;
constexpr int kUnsignedShort = 5123;
constexpr int kUnsignedInt = 5125;
constexpr int kVertexBuffer = 34962;
constexpr int kIndexBuffer = 34963;
/// The last number of two bytes has a meaning of its own.
constexpr std::size_t kMostShortVertices = 65535;

constexpr qsizetype kVertexWithCoordinates = sizeof(Vertex);
constexpr qsizetype kVertexWithout = offsetof(Vertex, uv);
static_assert(sizeof(Vertex) == 32 && offsetof(Vertex, normal) == 12 && kVertexWithout == 24,
              "vertices are written as they lie in memory");

qsizetype BytesOfVertex(bool hasCoordinates)
{
    return hasCoordinates ? kVertexWithCoordinates : kVertexWithout;
}

QJsonArray ArrayOf(const std::array<float, 3>& numbers)
{
    return {double{numbers[0]}, double{numbers[1]}, double{numbers[2]}};
}

}  // namespace

GltfBuffer::GltfBuffer(const ImportedModel& scene)
{
    constexpr qsizetype kIndexBytes = 4;
    qsizetype room = 0;
    std::map<std::pair<std::uint64_t, bool>, bool> seen;
    for (const ImportedMesh& each : scene.meshes) {
        if (seen.try_emplace({each.mesh->id, each.hasCoordinates}).second) {
            room += static_cast<qsizetype>(each.mesh->vertices.size()) *
                        BytesOfVertex(each.hasCoordinates) +
                    static_cast<qsizetype>(each.mesh->indices.size()) * kIndexBytes;
        }
    }
    m_bytes.reserve(room);
}

/// Every view begins at a multiple of four.
char* GltfBuffer::Room(qsizetype length, QJsonObject more)
{
    m_bytes.resize((m_bytes.size() + 3) / 4 * 4, '\0');
    more["buffer"] = 0;
    more["byteOffset"] = m_bytes.size();
    more["byteLength"] = length;
    m_views.append(more);
    m_bytes.resize(m_bytes.size() + length);
    return m_bytes.data() + m_bytes.size() - length;
}

int GltfBuffer::Add(const QByteArray& bytes)
{
    std::memcpy(Room(bytes.size(), {}), bytes.constData(), static_cast<std::size_t>(bytes.size()));
    return static_cast<int>(m_views.size()) - 1;
}

int GltfBuffer::Accessor(QJsonObject accessor)
{
    accessor["bufferView"] = m_views.size() - 1;
    m_accessors.append(accessor);
    return static_cast<int>(m_accessors.size()) - 1;
}

QJsonObject GltfBuffer::AddVertices(const Mesh& mesh, bool hasCoordinates)
{
    const qsizetype stride = BytesOfVertex(hasCoordinates);
    const auto count = static_cast<qsizetype>(mesh.vertices.size());
    char* out = Room(count * stride, {{"byteStride", stride}, {"target", kVertexBuffer}});
    constexpr float kMost = std::numeric_limits<float>::max();
    std::array low{kMost, kMost, kMost};
    std::array high{-kMost, -kMost, -kMost};
    for (Vertex vertex : mesh.vertices) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            low[axis] = std::min(low[axis], vertex.position[axis]);
            high[axis] = std::max(high[axis], vertex.position[axis]);
        }
        vertex.uv[1] = 1.0F - vertex.uv[1];  // the format counts from the top
        std::memcpy(out, &vertex, static_cast<std::size_t>(stride));
        out += stride;
    }
    const auto field = [&](std::size_t offset, const char* type) {
        return QJsonObject{{"byteOffset", static_cast<qint64>(offset)},
                           {"componentType", kFloat},
                           {"count", count},
                           {"type", type}};
    };
    QJsonObject positions = field(offsetof(Vertex, position), "VEC3");
    positions["min"] = ArrayOf(low);
    positions["max"] = ArrayOf(high);
    QJsonObject attributes{{"POSITION", Accessor(positions)},
                           {"NORMAL", Accessor(field(offsetof(Vertex, normal), "VEC3"))}};
    if (hasCoordinates) {
        attributes["TEXCOORD_0"] = Accessor(field(offsetof(Vertex, uv), "VEC2"));
    }
    return attributes;
}

int GltfBuffer::AddIndices(const Mesh& mesh)
{
    const bool isShort = mesh.vertices.size() <= kMostShortVertices;
    const std::size_t size = isShort ? sizeof(std::uint16_t) : sizeof(std::uint32_t);
    char* out =
        Room(static_cast<qsizetype>(mesh.indices.size() * size), {{"target", kIndexBuffer}});
    if (isShort) {
        for (const std::uint32_t index : mesh.indices) {
            const auto narrow = static_cast<std::uint16_t>(index);
            std::memcpy(out, &narrow, sizeof(narrow));
            out += sizeof(narrow);
        }
    } else {
        std::memcpy(out, mesh.indices.data(), mesh.indices.size() * size);
    }
    return Accessor({{"componentType", isShort ? kUnsignedShort : kUnsignedInt},
                     {"count", static_cast<qint64>(mesh.indices.size())},
                     {"type", "SCALAR"}});
}

QJsonObject GltfBuffer::PrimitiveOf(const ImportedMesh& mesh)
{
    const auto [known, isNew] = m_known.try_emplace({mesh.mesh->id, mesh.hasCoordinates});
    if (isNew) {
        known->second = {{"attributes", AddVertices(*mesh.mesh, mesh.hasCoordinates)},
                         {"indices", AddIndices(*mesh.mesh)}};
    }
    return known->second;
}

void GltfBuffer::AddTo(QJsonObject& document) const
{
    if (!m_views.isEmpty()) {
        document["bufferViews"] = m_views;
    }
    if (!m_accessors.isEmpty()) {
        document["accessors"] = m_accessors;
    }
}

}  // namespace studio
