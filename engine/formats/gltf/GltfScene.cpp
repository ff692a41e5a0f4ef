#include "GltfScene.h"

#include "GltfSurface.h"
#include "MeshFinishing.h"
#include "ShapeNames.h"

#include <QQuaternion>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace studio {
namespace {

enum class Mode { Triangles = 4, Strip = 5, Fan = 6 };

std::vector<std::uint32_t> TrianglesOf(std::vector<std::uint32_t> corners, Mode mode)
{
    if (mode == Mode::Triangles) {
        return corners;
    }
    std::vector<std::uint32_t> triangles;
    for (std::size_t last = 2; last < corners.size(); ++last) {
        const bool turned = mode == Mode::Strip && last % 2 == 1;
        const std::size_t first = mode == Mode::Strip ? last - 2 : 0;
        triangles.insert(triangles.end(), {corners[first], corners[turned ? last : last - 1],
                                           corners[turned ? last - 1 : last]});
    }
    return triangles;
}

template <std::size_t count>
std::array<float, count> NumbersIn(const QJsonValue& value, std::array<float, count> numbers)
{
    const QJsonArray array = value.toArray();
    for (std::size_t i = 0; array.size() == static_cast<qsizetype>(count) && i < count; ++i) {
        numbers[i] = static_cast<float>(array.at(static_cast<qsizetype>(i)).toDouble());
    }
    return numbers;
}

QMatrix4x4 ParentFromNode(const QJsonObject& node)
{
    if (node.contains(u"matrix")) {
        return QMatrix4x4(
                   NumbersIn<16>(node[u"matrix"], {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1})
                       .data())
            .transposed();
    }
    const auto [x, y, z] = NumbersIn<3>(node[u"translation"], {});
    const auto [qx, qy, qz, qw] = NumbersIn<4>(node[u"rotation"], {0, 0, 0, 1});
    const auto [sx, sy, sz] = NumbersIn<3>(node[u"scale"], {1, 1, 1});
    QMatrix4x4 matrix;
    matrix.translate(x, y, z);
    matrix.rotate(QQuaternion(qw, qx, qy, qz));
    matrix.scale(sx, sy, sz);
    return matrix;
}

QMatrix4x4 Usable(const QMatrix4x4& matrix)
{
    const std::span<const float> values(matrix.constData(), 16);
    const bool usable = std::ranges::all_of(
        values, [](float value) { return std::abs(value) <= kLargestCoordinate; });
    return usable ? matrix : QMatrix4x4();
}

class GltfShapes {
public:
    GltfShapes(GltfFile& file, std::size_t plainMaterial, ImportedModel& model)
        : m_file(file), m_plainMaterial(plainMaterial), m_model(model)
    {
    }

    // With a list of its own instead of recursion: the depth of a file's nodes is the file's
    // choice. A node has one place; one that is met again is a damaged file's.
    void Add()
    {
        std::vector<Visit> open;
        Open(Roots(), {}, open);
        std::vector<bool> seen(static_cast<std::size_t>(m_file.Root()[u"nodes"].toArray().size()));
        while (!open.empty()) {
            const Visit visit = open.back();
            open.pop_back();
            if (visit.node >= seen.size() || seen[visit.node]) {
                continue;
            }
            seen[visit.node] = true;
            const QJsonObject node = m_file.At("nodes", static_cast<qint64>(visit.node));
            const QMatrix4x4 worldFromNode = visit.worldFromParent * ParentFromNode(node);
            if (node.contains(u"mesh")) {
                AddMesh(node, static_cast<std::int32_t>(visit.node), Usable(worldFromNode));
            }
            Open(node[u"children"].toArray(), worldFromNode, open);
        }
    }

private:
    struct Visit {
        std::size_t node = 0;
        QMatrix4x4 worldFromParent;
    };
    /// A primitive of a mesh, by its place in the model.
    struct Part {
        std::size_t mesh = 0;
        std::string suffix;
    };

    [[nodiscard]] QJsonArray Roots() const
    {
        const QJsonObject scene = m_file.At("scenes", m_file.Root()[u"scene"].toInteger(0));
        if (!scene.isEmpty()) {
            return scene[u"nodes"].toArray();
        }
        QJsonArray all;
        for (qsizetype node = 0; node < m_file.Root()[u"nodes"].toArray().size(); ++node) {
            all.append(node);
        }
        return all;
    }

    static void Open(const QJsonArray& nodes, const QMatrix4x4& worldFromParent,
                     std::vector<Visit>& open)
    {
        for (qsizetype child = nodes.size(); child > 0; --child) {
            open.push_back(
                {static_cast<std::size_t>(nodes.at(child - 1).toInteger(-1)), worldFromParent});
        }
    }

    void AddMesh(const QJsonObject& node, std::int32_t number, const QMatrix4x4& worldFromMesh)
    {
        const QJsonObject mesh = m_file.At("meshes", node[u"mesh"]);
        // Nodes that show one mesh are told apart by their own names.
        QString name = node[u"name"].toString();
        name = name.isEmpty() ? mesh[u"name"].toString() : name;
        for (const Part& part : PartsOf(node[u"mesh"].toInt(-1), mesh)) {
            const std::string numbered = "Shape " + std::to_string(m_model.shapes.size() + 1);
            const std::string own = name.isEmpty() ? "" : name.toStdString() + part.suffix;
            m_model.shapes.push_back(
                {ReadableName(own, numbered), part.mesh, worldFromMesh, number});
        }
    }

    const std::vector<Part>& PartsOf(int index, const QJsonObject& mesh)
    {
        const auto [known, isNew] = m_parts.try_emplace(index);
        const QJsonArray primitives = mesh[u"primitives"].toArray();
        for (qsizetype i = 0; isNew && i < primitives.size(); ++i) {
            const QJsonObject primitive = primitives.at(i).toObject();
            const int mode = primitive[u"mode"].toInt(4);
            if (mode < 4 || mode > 6) {
                continue;  // points and lines
            }
            known->second.push_back({m_model.meshes.size(), primitives.size() == 1
                                                                ? std::string()
                                                                : '-' + std::to_string(i)});
            m_model.meshes.push_back(MeshOf(primitive, static_cast<Mode>(mode)));
            m_model.meshes.back().sourcePrimitive = static_cast<std::int32_t>(i);
        }
        return known->second;
    }

    ImportedMesh MeshOf(const QJsonObject& primitive, Mode mode)
    {
        const QJsonObject attributes = primitive[u"attributes"].toObject();
        RawMesh raw;
        const auto material = static_cast<std::size_t>(primitive[u"material"].toInteger(-1));
        raw.material = std::min(material, m_plainMaterial);
        const auto positions = m_file.Floats<3>(attributes[u"POSITION"]);
        const auto normals = m_file.Floats<3>(attributes[u"NORMAL"]);
        const auto uvs = m_file.Floats<2>(
            attributes[CoordinatesOf(m_file.At("materials", primitive[u"material"]))]);
        raw.hasNormals = !normals.empty();
        raw.hasCoordinates = !uvs.empty();
        raw.vertices.resize(positions.size());
        for (std::size_t i = 0; i < positions.size(); ++i) {
            Vertex& vertex = raw.vertices[i];
            vertex.position = positions[i];
            vertex.normal = i < normals.size() ? normals[i] : vertex.normal;
            vertex.uv = i < uvs.size() ? std::array{uvs[i][0], 1.0F - uvs[i][1]} : vertex.uv;
        }
        raw.indices = m_file.Indices(primitive[u"indices"]);
        if (!primitive.contains(u"indices")) {
            raw.indices.resize(positions.size());
            std::iota(raw.indices.begin(), raw.indices.end(), 0U);
        }
        raw.indices = TrianglesOf(std::move(raw.indices), mode);
        for (const auto& [red, green, blue] : m_file.Floats<3>(attributes[u"COLOR_0"])) {
            raw.colours.push_back({red, green, blue});
        }
        return Finished(std::move(raw));
    }

    GltfFile& m_file;
    std::size_t m_plainMaterial;
    ImportedModel& m_model;
    std::map<int, std::vector<Part>> m_parts;
};

}  // namespace

void AddGltfShapes(GltfFile& file, std::size_t plainMaterial, ImportedModel& model)
{
    GltfShapes(file, plainMaterial, model).Add();
}

}  // namespace studio
