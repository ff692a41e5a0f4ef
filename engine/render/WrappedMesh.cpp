#include "WrappedMesh.h"

#include "CornerPlaces.h"
#include "UnitVector.h"
#include "WrapCoordinates.h"

#include <cmath>
#include <optional>
#include <unordered_map>

namespace studio {
namespace {

/// Of an image: how far from its place it may lie.
constexpr float kVisiblyElsewhere = 0.005F;
constexpr int kMostPasses = 6;
/// That dividing adds to one mesh.
constexpr std::size_t kMostAddedTriangles = 400'000;

/// Divides edges, each by what its own ends are, so that the triangles on both sides still meet.
class RoundDivision {
public:
    RoundDivision(const Mesh& mesh, const WrapTerms& wrap)
        : m_wrap(wrap), m_vertices(mesh.vertices), m_indices(mesh.indices),
          m_most(mesh.indices.size() + 3 * kMostAddedTriangles)
    {
        AddPoints();
    }

    /// False when something still bends.
    bool Divide()
    {
        bool bends = true;
        for (int pass = 0; bends && pass < kMostPasses && m_indices.size() <= m_most; ++pass) {
            bends = DivideOnce();
        }
        return !bends;
    }

    [[nodiscard]] Mesh Take()
    {
        Mesh mesh;
        mesh.vertices = std::move(m_vertices);
        mesh.indices = std::move(m_indices);
        return mesh;
    }

private:
    void AddPoints()
    {
        for (std::size_t i = m_points.size(); i < m_vertices.size(); ++i) {
            const auto& [x, y, z] = m_vertices[i].position;
            m_points.push_back(m_wrap.wrapFromMesh.map(QVector3D(x, y, z)));
        }
    }

    /// How far the image lies elsewhere than between its ends, a share of the way along.
    [[nodiscard]] float Deviation(const QVector3D& a, const QVector3D& b, float share) const
    {
        const QVector3D p = a + share * (b - a);
        const QVector2D begin = RoundPlace(a, m_wrap.kind);
        const QVector2D way = RoundPlace(b, m_wrap.kind) - begin;
        QVector2D apart = RoundPlace(p, m_wrap.kind) - begin;
        // The short way round.
        const float across = way.x() - std::round(way.x());
        apart.setX(apart.x() - share * across);
        apart.setX(apart.x() - std::round(apart.x()));
        apart.setY(apart.y() - share * way.y());
        // Little of the image is around a pole.
        const float around = std::hypot(p.x(), p.z());
        const float size = m_wrap.kind == CoordinateKind::Spherical ? p.length() : 1.0F;
        apart.setX(apart.x() * std::min(1.0F, size > 0.0F ? around / size : 0.0F));
        return apart.length();
    }

    [[nodiscard]] bool Bends(std::uint32_t first, std::uint32_t second) const
    {
        constexpr float kSmallTurn = 0.02F;  // squared
        const QVector3D& a = m_points[first];
        const QVector3D& b = m_points[second];
        const auto around = [](const QVector3D& p) { return p.x() * p.x() + p.z() * p.z(); };
        if ((b - a).lengthSquared() < kSmallTurn * std::min(around(a), around(b))) {
            return false;
        }
        return Deviation(a, b, 0.25F) > kVisiblyElsewhere ||
               Deviation(a, b, 0.75F) > kVisiblyElsewhere;
    }

    [[nodiscard]] std::optional<std::uint32_t> MiddleOf(std::uint32_t first, std::uint32_t second)
    {
        if (!Bends(std::min(first, second), std::max(first, second))) {
            return std::nullopt;
        }
        const std::uint64_t edge =
            (std::uint64_t{std::min(first, second)} << 32U) | std::max(first, second);
        const auto [known, isNew] =
            m_middles.try_emplace(edge, static_cast<std::uint32_t>(m_vertices.size()));
        if (isNew) {
            m_vertices.push_back(Between(m_vertices[first], m_vertices[second]));
        }
        return known->second;
    }

    static Vertex Between(const Vertex& a, const Vertex& b)
    {
        Vertex middle;
        QVector3D normal;
        for (std::size_t i = 0; i < 3; ++i) {
            middle.position[i] = (a.position[i] + b.position[i]) / 2.0F;
            normal[static_cast<int>(i)] = a.normal[i] + b.normal[i];
        }
        normal = UnitOr(normal, {a.normal[0], a.normal[1], a.normal[2]});
        middle.normal = {normal.x(), normal.y(), normal.z()};
        return middle;
    }

    bool DivideOnce()
    {
        const std::size_t before = m_vertices.size();
        m_middles.clear();
        std::vector<std::uint32_t> divided;
        divided.reserve(m_indices.size());
        for (std::size_t i = 0; i + 2 < m_indices.size(); i += 3) {
            DivideTriangle({m_indices[i], m_indices[i + 1], m_indices[i + 2]}, divided);
        }
        m_indices = std::move(divided);
        AddPoints();
        return m_vertices.size() > before;
    }

    void DivideTriangle(std::array<std::uint32_t, 3> corners, std::vector<std::uint32_t>& out)
    {
        std::array<std::optional<std::uint32_t>, 3> middles;  // after the corner of their number
        int count = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            middles[i] = MiddleOf(corners[i], corners[(i + 1) % 3]);
            count += middles[i] ? 1 : 0;
        }
        // The first edge is divided; of two, the last is not.
        for (int turn = 0; count > 0 && turn < 3 && (!middles[0] || (count == 2 && middles[2]));
             ++turn) {
            std::rotate(corners.begin(), corners.begin() + 1, corners.end());
            std::rotate(middles.begin(), middles.begin() + 1, middles.end());
        }
        const auto [a, b, c] = corners;
        if (count == 0) {
            out.insert(out.end(), {a, b, c});
        } else if (count == 1) {
            out.insert(out.end(), {a, *middles[0], c, *middles[0], b, c});
        } else if (count == 2) {
            out.insert(out.end(), {*middles[0], b, *middles[1], a, *middles[0], *middles[1], a,
                                   *middles[1], c});
        } else {
            out.insert(out.end(),
                       {a, *middles[0], *middles[2], *middles[0], b, *middles[1], *middles[2],
                        *middles[1], c, *middles[0], *middles[1], *middles[2]});
        }
    }

    const WrapTerms& m_wrap;
    std::vector<Vertex> m_vertices;
    std::vector<std::uint32_t> m_indices;
    std::vector<QVector3D> m_points;  ///< of the vertices, in the space of the wrap
    std::unordered_map<std::uint64_t, std::uint32_t> m_middles;
    std::size_t m_most;
};

/// Vertices by their number in the mesh and their coordinates.
class PlacedVertices {
public:
    explicit PlacedVertices(const Mesh& mesh) : m_mesh(mesh), m_first(mesh.vertices.size(), kNone)
    {
    }

    void Add(std::uint32_t corner, const QVector2D& place)
    {
        const std::array<float, 2> uv{place.x(), 1.0F - place.y()};
        std::uint32_t* link = &m_first[corner];
        while (*link != kNone && m_vertices[*link].uv != uv) {
            link = &m_next[*link];
        }
        if (*link == kNone) {
            *link = static_cast<std::uint32_t>(m_vertices.size());
            m_indices.push_back(*link);
            m_vertices.push_back(m_mesh.vertices[corner]);
            m_vertices.back().uv = uv;
            m_next.push_back(kNone);
            return;
        }
        m_indices.push_back(*link);
    }

    [[nodiscard]] std::shared_ptr<const Mesh> Take()
    {
        return MakeMesh(std::move(m_vertices), std::move(m_indices));
    }

private:
    static constexpr std::uint32_t kNone = ~0U;

    const Mesh& m_mesh;
    std::vector<std::uint32_t> m_first;  ///< of each number, the vertex that was made of it first
    std::vector<std::uint32_t> m_next;   ///< and the one that was made after it
    std::vector<Vertex> m_vertices;
    std::vector<std::uint32_t> m_indices;
};

}  // namespace

WrappedMesh WithWrapCoordinates(const FrameItem& item)
{
    const WrapTerms wrap = WrapTermsOf(item, *item.material);
    Mesh divided;
    bool bends = false;
    const bool isRound =
        wrap.kind == CoordinateKind::Spherical || wrap.kind == CoordinateKind::Cylindrical;
    if (isRound) {
        RoundDivision division(*item.mesh, wrap);
        bends = !division.Divide();
        divided = division.Take();
    }
    const Mesh& mesh = isRound ? divided : *item.mesh;
    PlacedVertices vertices(mesh);
    for (std::size_t i = 0; i + 2 < mesh.indices.size(); i += 3) {
        const std::array corners{mesh.indices[i], mesh.indices[i + 1], mesh.indices[i + 2]};
        const auto places = CornerPlaces(mesh, corners, wrap);
        for (std::size_t corner = 0; corner < 3; ++corner) {
            vertices.Add(corners[corner], places[corner]);
        }
    }
    return {vertices.Take(), bends};
}

}  // namespace studio
