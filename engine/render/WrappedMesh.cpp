#include "WrappedMesh.h"

#include "CornerPlaces.h"
#include "TileCutting.h"
#include "UnitVector.h"
#include "WrapCoordinates.h"

#include <cmath>
#include <optional>
#include <unordered_map>
#include <utility>

namespace studio {
namespace {

/// Of an image: how far from its place it may lie.
constexpr float kVisiblyElsewhere = 0.005F;
constexpr int kMostPasses = 10;
/// That dividing adds to one mesh.
constexpr std::size_t kMostAddedTriangles = 400'000;

/// Divides edges, each by what its own ends are, so that the triangles on both sides still meet.
class RoundDivision {
public:
    RoundDivision(const Mesh& mesh, const WrapTerms& wrap)
        : m_wrap(wrap), m_vertices(mesh.vertices), m_open(mesh.indices),
          m_most(mesh.indices.size() + 3 * kMostAddedTriangles)
    {
        AddPoints();
    }

    /// False when something still bends.
    bool Divide()
    {
        bool bends = true;
        for (int pass = 0;
             bends && pass < kMostPasses && m_indices.size() + m_open.size() <= m_most; ++pass) {
            bends = DivideOnce();
        }
        return !bends;
    }

    [[nodiscard]] Mesh Take()
    {
        m_indices.insert(m_indices.end(), m_open.begin(), m_open.end());
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
        // Little of the image is around a pole, which itself has every longitude.
        const bool beginsAtPole = IsAtPole(a) || IsAtPole(b);
        const float around = beginsAtPole ? 0.0F : std::hypot(p.x(), p.z());
        const float size = m_wrap.kind == CoordinateKind::Spherical ? p.length() : 1.0F;
        apart.setX(apart.x() * std::min(1.0F, size > 0.0F ? around / size : 0.0F));
        return m_wrap.tiles[0].LengthOf(apart).length();
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
        const std::vector<std::uint32_t> open = std::exchange(m_open, {});
        for (std::size_t i = 0; i + 2 < open.size(); i += 3) {
            DivideTriangle({open[i], open[i + 1], open[i + 2]});
        }
        AddPoints();
        return m_vertices.size() > before;
    }

    void DivideTriangle(std::array<std::uint32_t, 3> corners)
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
            m_indices.insert(m_indices.end(), {a, b, c});
        } else if (count == 1) {
            m_open.insert(m_open.end(), {a, *middles[0], c, *middles[0], b, c});
        } else if (count == 2) {
            m_open.insert(m_open.end(), {*middles[0], b, *middles[1], a, *middles[0], *middles[1],
                                         a, *middles[1], c});
        } else {
            m_open.insert(m_open.end(),
                          {a, *middles[0], *middles[2], *middles[0], b, *middles[1], *middles[2],
                           *middles[1], c, *middles[0], *middles[1], *middles[2]});
        }
    }

    const WrapTerms& m_wrap;
    std::vector<Vertex> m_vertices;
    std::vector<std::uint32_t> m_open;     ///< triangles that may bend
    std::vector<std::uint32_t> m_indices;  ///< and those that do not
    std::vector<QVector3D> m_points;       ///< of the vertices, in the space of the wrap
    std::unordered_map<std::uint64_t, std::uint32_t> m_middles;
    std::size_t m_most;
};

/// Vertices by their number and their coordinates.
class PlacedVertices {
public:
    void Add(std::uint32_t number, const Vertex& vertex, const QVector2D& place)
    {
        const std::array<float, 2> uv{place.x(), 1.0F - place.y()};
        if (number >= m_first.size()) {
            m_first.resize(number + 1, kNone);
        }
        std::uint32_t known = m_first[number];
        while (known != kNone && m_vertices[known].uv != uv) {
            known = m_next[known];
        }
        if (known == kNone) {
            known = static_cast<std::uint32_t>(m_vertices.size());
            m_vertices.push_back(vertex);
            m_vertices.back().uv = uv;
            m_next.push_back(std::exchange(m_first[number], known));
        }
        m_indices.push_back(known);
    }

    [[nodiscard]] std::shared_ptr<const Mesh> Take()
    {
        return MakeMesh(std::move(m_vertices), std::move(m_indices));
    }

private:
    static constexpr std::uint32_t kNone = ~0U;

    std::vector<std::uint32_t> m_first;  ///< of each number, the vertex that was made of it last
    std::vector<std::uint32_t> m_next;   ///< and the one that was made before it
    std::vector<Vertex> m_vertices;
    std::vector<std::uint32_t> m_indices;
};

}  // namespace

WrappedMesh WithCoordinates(const FrameItem& item)
{
    const WrapTerms wrap = WrapTermsOf(item, *item.material);
    Mesh divided;
    bool isExact = true;
    const bool isRound =
        wrap.kind == CoordinateKind::Spherical || wrap.kind == CoordinateKind::Cylindrical;
    if (isRound) {
        RoundDivision division(*item.mesh, wrap);
        isExact = division.Divide();
        divided = division.Take();
    }
    const Mesh& mesh = isRound ? divided : *item.mesh;
    const bool isCropped = item.material->Placement != CorvexDB::TexturePlacement();
    TileCutter cutter(mesh.vertices);
    PlacedVertices vertices;
    const TileCutter::Take add = [&](const PlacedPolygon& piece, const QVector2D& tile) {
        for (std::size_t last = 2; last < piece.size(); ++last) {
            for (const std::size_t corner : {std::size_t{0}, last - 1, last}) {
                const auto& [vertex, place] = piece[corner];
                vertices.Add(vertex, cutter.Vertices()[vertex], place - tile);
            }
        }
    };
    PlacedPolygon triangle(3);
    for (std::size_t i = 0; i + 2 < mesh.indices.size(); i += 3) {
        const std::array corners{mesh.indices[i], mesh.indices[i + 1], mesh.indices[i + 2]};
        const auto places = CornerPlaces(mesh, corners, wrap);
        for (std::size_t corner = 0; corner < 3; ++corner) {
            triangle[corner] = {corners[corner], places[corner]};
        }
        if (isCropped) {
            cutter.Cut(triangle, add);
        } else {
            add(triangle, {});
        }
    }
    return {vertices.Take(), isExact && !cutter.LeftSomeWhole()};
}

}  // namespace studio
