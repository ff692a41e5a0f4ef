#include "MeshFinishing.h"

#include "UnitVector.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numeric>

namespace studio {
namespace {

constexpr QVector3D kUp(0.0F, 1.0F, 0.0F);

bool IsUsable(const auto& values)
{
    return std::ranges::all_of(values,
                               [](float value) { return std::abs(value) <= kLargestCoordinate; });
}

QVector3D From(const std::array<float, 3>& values)
{
    return {values[0], values[1], values[2]};
}

std::array<float, 3> ArrayOf(const QVector3D& vector)
{
    return {vector.x(), vector.y(), vector.z()};
}

void DropDamaged(RawMesh& raw)
{
    auto& indices = raw.indices;
    const auto isUsable = [&raw](std::uint32_t index) {
        return index < raw.vertices.size() && IsUsable(raw.vertices[index].position);
    };
    std::size_t kept = 0;
    for (std::size_t first = 0; first + 2 < indices.size(); first += 3) {
        if (isUsable(indices[first]) && isUsable(indices[first + 1]) &&
            isUsable(indices[first + 2])) {
            std::copy_n(indices.begin() + static_cast<std::ptrdiff_t>(first), 3,
                        indices.begin() + static_cast<std::ptrdiff_t>(kept));
            kept += 3;
        }
    }
    indices.resize(kept);
    for (Vertex& vertex : raw.vertices) {
        vertex.position = IsUsable(vertex.position) ? vertex.position : std::array<float, 3>{};
        vertex.uv = IsUsable(vertex.uv) ? vertex.uv : std::array<float, 2>{};
    }
}

QVector3D NormalOf(const RawMesh& raw, const std::uint32_t* corners)
{
    return FaceNormal(From(raw.vertices[corners[0]].position),
                      From(raw.vertices[corners[1]].position),
                      From(raw.vertices[corners[2]].position));
}

/// Triangles whose corners have no direction face where they face, with corners of their own.
void FaceByThemselves(RawMesh& raw)
{
    std::vector<bool> hasDirection;
    hasDirection.reserve(raw.vertices.size());
    for (Vertex& vertex : raw.vertices) {
        const bool has = IsUsable(vertex.normal) && vertex.normal != std::array<float, 3>{};
        vertex.normal = has ? ArrayOf(UnitOr(From(vertex.normal), kUp)) : ArrayOf(kUp);
        hasDirection.push_back(has);
    }
    for (std::size_t first = 0; first < raw.indices.size(); first += 3) {
        const auto corners = std::span(raw.indices).subspan(first, 3);
        if (std::ranges::all_of(corners, [&](auto index) { return hasDirection[index]; })) {
            continue;
        }
        const std::array<float, 3> normal = ArrayOf(NormalOf(raw, corners.data()));
        for (std::uint32_t& corner : corners) {
            Vertex own = raw.vertices[corner];
            own.normal = normal;
            corner = static_cast<std::uint32_t>(raw.vertices.size());
            raw.vertices.push_back(own);
            hasDirection.push_back(true);
        }
    }
}

/// Gives vertices of one position one number, in the order in which they come.
class Places {
public:
    explicit Places(const std::vector<Vertex>& vertices) : m_vertices(vertices)
    {
        while (m_slots.size() < 2 * vertices.size()) {
            m_slots.resize(2 * m_slots.size());
        }
        std::ranges::fill(m_slots, kEmpty);
        m_placeOf.reserve(vertices.size());
        for (std::uint32_t index = 0; index < vertices.size(); ++index) {
            m_placeOf.push_back(PlaceOf(index));
        }
    }

    [[nodiscard]] std::uint32_t Count() const { return m_count; }
    [[nodiscard]] std::uint32_t Of(std::uint32_t vertex) const { return m_placeOf[vertex]; }

private:
    static constexpr std::uint32_t kEmpty = ~std::uint32_t{0};

    static std::size_t HashOf(const std::array<float, 3>& position)
    {
        std::size_t hash = 0;
        for (const float value : position) {
            // Both zeros are one.
            hash = (hash ^ std::bit_cast<std::uint32_t>(value + 0.0F)) * 0x9E3779B97F4A7C15U;
            hash ^= hash >> 29U;
        }
        return hash;
    }

    std::uint32_t PlaceOf(std::uint32_t index)
    {
        const auto& position = m_vertices[index].position;
        std::size_t slot = HashOf(position) & (m_slots.size() - 1);
        while (m_slots[slot] != kEmpty) {
            if (m_vertices[m_slots[slot]].position == position) {
                return m_placeOf[m_slots[slot]];
            }
            slot = (slot + 1) & (m_slots.size() - 1);
        }
        m_slots[slot] = index;
        return m_count++;
    }

    const std::vector<Vertex>& m_vertices;
    std::vector<std::uint32_t> m_slots = std::vector<std::uint32_t>(16);
    std::vector<std::uint32_t> m_placeOf;
    std::uint32_t m_count = 0;
};

/// The corners at each place, one place after the other.
class CornersByPlace {
public:
    CornersByPlace(const RawMesh& raw, const Places& places)
        : m_ends(places.Count() + 1), m_corners(raw.indices.size())
    {
        for (const std::uint32_t index : raw.indices) {
            ++m_ends[places.Of(index) + 1];
        }
        std::partial_sum(m_ends.begin(), m_ends.end(), m_ends.begin());
        std::vector<std::uint32_t> next(m_ends.begin(), m_ends.end() - 1);
        for (std::uint32_t corner = 0; corner < raw.indices.size(); ++corner) {
            m_corners[next[places.Of(raw.indices[corner])]++] = corner;
        }
    }

    [[nodiscard]] std::span<const std::uint32_t> At(std::size_t place) const
    {
        return std::span(m_corners).subspan(m_ends[place], m_ends[place + 1] - m_ends[place]);
    }

private:
    std::vector<std::uint32_t> m_ends;
    std::vector<std::uint32_t> m_corners;
};

class Smoothing {
public:
    explicit Smoothing(RawMesh& raw) : m_raw(raw)
    {
        m_faces.reserve(raw.indices.size() / 3);
        for (std::size_t first = 0; first < raw.indices.size(); first += 3) {
            m_faces.push_back(DirectionOf(&raw.indices[first]));
        }
    }

    void Smooth()
    {
        const Places places(m_raw.vertices);
        const CornersByPlace corners(m_raw, places);
        m_vertices.reserve(m_raw.vertices.size());
        std::vector<std::uint32_t> indices(m_raw.indices.size());
        for (std::uint32_t place = 0; place < places.Count(); ++place) {
            const std::size_t first = m_vertices.size();
            for (const std::uint32_t corner : corners.At(place)) {
                indices[corner] = Take(corner, corners.At(place), first);
            }
        }
        m_raw.indices = std::move(indices);
        m_raw.vertices = std::move(m_vertices);
    }

private:
    /// Null for a triangle without an area, which turns no other's corners.
    [[nodiscard]] QVector3D DirectionOf(const std::uint32_t* corners) const
    {
        const QVector3D origin = From(m_raw.vertices[corners[0]].position);
        return UnitOr(
            QVector3D::crossProduct(UnitOr(From(m_raw.vertices[corners[1]].position) - origin, {}),
                                    UnitOr(From(m_raw.vertices[corners[2]].position) - origin, {})),
            {});
    }

    // The tip of a fan of so many has no direction anyway, and each is compared with each.
    static constexpr std::size_t kMostSmoothed = 256;

    std::array<float, 3> NormalAt(std::uint32_t corner,
                                  std::span<const std::uint32_t> neighbours) const
    {
        constexpr float kCosineOfEdge = 0.5F;
        const QVector3D& own = m_faces[corner / 3];
        if (neighbours.size() > kMostSmoothed) {
            return ArrayOf(UnitOr(own, kUp));
        }
        QVector3D sum;
        for (const std::uint32_t other : neighbours) {
            const QVector3D& face = m_faces[other / 3];
            if (QVector3D::dotProduct(own, face) >= kCosineOfEdge) {
                sum += face;
            }
        }
        return ArrayOf(UnitOr(sum, kUp));
    }

    std::uint32_t Take(std::uint32_t corner, std::span<const std::uint32_t> neighbours,
                       std::size_t firstHere)
    {
        Vertex vertex = m_raw.vertices[m_raw.indices[corner]];
        vertex.normal = NormalAt(corner, neighbours);
        if (neighbours.size() <= kMostSmoothed) {
            for (std::size_t known = firstHere; known < m_vertices.size(); ++known) {
                if (m_vertices[known].normal == vertex.normal &&
                    m_vertices[known].uv == vertex.uv) {
                    return static_cast<std::uint32_t>(known);
                }
            }
        }
        m_vertices.push_back(vertex);
        return static_cast<std::uint32_t>(m_vertices.size() - 1);
    }

    RawMesh& m_raw;
    std::vector<QVector3D> m_faces;
    std::vector<Vertex> m_vertices;
};

/// Clips one ear after the other off a polygon that is seen from its front.
class EarClipping {
public:
    explicit EarClipping(std::span<const QVector3D> polygon) : m_polygon(polygon)
    {
        for (std::size_t i = 0; i < polygon.size(); ++i) {
            m_left.push_back(static_cast<std::uint32_t>(i));
            m_front += QVector3D::crossProduct(polygon[i] - polygon[0],
                                               polygon[(i + 1) % polygon.size()] - polygon[0]);
        }
    }

    void AppendTo(std::vector<std::uint32_t>& corners)
    {
        while (m_left.size() > 3) {
            std::size_t ear = 0;
            while (ear < m_left.size() && !IsEar(ear)) {
                ++ear;
            }
            ear = ear < m_left.size() ? ear : 1;  // of a polygon that crosses itself, any
            corners.insert(corners.end(), {Before(ear), m_left[ear], After(ear)});
            m_left.erase(m_left.begin() + static_cast<std::ptrdiff_t>(ear));
        }
        corners.insert(corners.end(), m_left.begin(), m_left.end());
    }

private:
    [[nodiscard]] std::uint32_t Before(std::size_t at) const
    {
        return m_left[(at + m_left.size() - 1) % m_left.size()];
    }
    [[nodiscard]] std::uint32_t After(std::size_t at) const
    {
        return m_left[(at + 1) % m_left.size()];
    }

    /// Whether the way from a over b to c turns left.
    [[nodiscard]] bool TurnsLeft(const QVector3D& a, const QVector3D& b, const QVector3D& c) const
    {
        return QVector3D::dotProduct(m_front, QVector3D::crossProduct(b - a, c - b)) > 0.0F;
    }

    [[nodiscard]] bool IsEar(std::size_t at) const
    {
        const QVector3D& a = m_polygon[Before(at)];
        const QVector3D& b = m_polygon[m_left[at]];
        const QVector3D& c = m_polygon[After(at)];
        return TurnsLeft(a, b, c) && std::ranges::none_of(m_left, [&](std::uint32_t other) {
                   const QVector3D& p = m_polygon[other];
                   return p != a && p != b && p != c && TurnsLeft(a, b, p) && TurnsLeft(b, c, p) &&
                          TurnsLeft(c, a, p);
               });
    }

    std::span<const QVector3D> m_polygon;
    std::vector<std::uint32_t> m_left;
    QVector3D m_front;
};

/// Coordinates that are all the same place nothing; some files have them where others have none.
bool HasCoordinates(const RawMesh& raw)
{
    return raw.hasCoordinates && std::ranges::any_of(raw.vertices, [&](const Vertex& vertex) {
               return vertex.uv != raw.vertices.front().uv;
           });
}

VertexColours ColoursOf(const RawMesh& raw)
{
    VertexColours colours;
    colours.AddPlain(raw.colours.empty() ? raw.vertices.size() : 0);
    for (const CorvexMaterial::Rgb colour : raw.colours) {
        colours.Add(colour);
    }
    return colours;
}

}  // namespace

ImportedMesh Finished(RawMesh raw)
{
    const VertexColours colours = ColoursOf(raw);
    DropDamaged(raw);
    if (raw.hasNormals) {
        FaceByThemselves(raw);
    } else {
        Smoothing(raw).Smooth();
    }
    const bool hasCoordinates = HasCoordinates(raw);
    return {MakeMesh(std::move(raw.vertices), std::move(raw.indices)), raw.material, hasCoordinates,
            -1, colours};
}

void AppendTriangles(std::span<const QVector3D> polygon, std::vector<std::uint32_t>& corners)
{
    constexpr std::size_t kMostClipped = 1000;  // beyond, the time would grow without measure
    if (polygon.size() > 3 && polygon.size() <= kMostClipped) {
        EarClipping(polygon).AppendTo(corners);
        return;
    }
    for (std::uint32_t corner = 2; corner < polygon.size(); ++corner) {
        corners.insert(corners.end(), {0, corner - 1, corner});
    }
}

}  // namespace studio
