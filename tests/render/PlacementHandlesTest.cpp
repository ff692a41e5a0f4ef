// What a hand does with the handles of a projection, seen by where the images lie afterwards.

#include "CornerPlaces.h"
#include "Drawing.h"
#include "ProjectionDrag.h"

#include <array>

using namespace drawing;
using CorvexDB::ApplyMode;
using CorvexDB::FlatWrapType;
using CorvexDB::WrapType;
using studio::ProjectionDrag;
using studio::ProjectionHandle;
using studio::ProjectionHandles;
using Kind = studio::ProjectionHandle::Kind;

namespace {

struct Wrapping {
    WrapType wrap;
    FlatWrapType flat;
    ApplyMode mode;
};

const std::array kWrappings{
    Wrapping{WrapType::Spherical, FlatWrapType::TileByUnit, ApplyMode::Relative},
    Wrapping{WrapType::Cylindrical, FlatWrapType::TileByUnit, ApplyMode::Absolute},
    Wrapping{WrapType::Flat, FlatWrapType::TileByUnit, ApplyMode::Absolute},
    Wrapping{WrapType::Flat, FlatWrapType::TileByUnit, ApplyMode::Relative},
    Wrapping{WrapType::Flat, FlatWrapType::TileToFit, ApplyMode::Relative},
    Wrapping{WrapType::Flat, FlatWrapType::SizeToFit, ApplyMode::Absolute}};

class PlacementHandles : public testing::TestWithParam<Wrapping> {
protected:
    PlacementHandles()
    {
        item.mesh = Ball();
        item.worldFromMesh = Moved(0.7F, -0.4F, 0.3F);
        item.worldFromMesh.rotate(25.0F, 0.3F, 1.0F, 0.2F);
        item.worldFromMesh.scale(1.0F, 1.5F, 0.8F);
        item.coordinates = CorvexSG::CoordinateMode::FromWrap;
        item.applyMode = GetParam().mode;
        Material material;
        material.Wrap = GetParam().wrap;
        material.FlatWrap = GetParam().flat;
        material.TilesPerUnit = 0.7F;
        material.TextureRotation = 20.0F;
        material.Projection = {0.1F, -0.2F, 0.05F, 10.0F, 30.0F, -20.0F};
        item.material = std::make_shared<Material>(material);
        studio::Camera camera;
        camera.target = {0.7F, -0.4F, 0.3F};
        camera.distance = 6.0F;
        view.emplace(camera, QSizeF(800, 600));
    }

    [[nodiscard]] ProjectionHandles Handles() const { return {item, *view}; }
    [[nodiscard]] QPointF PixelOf(const QVector3D& world) const
    {
        return view->PixelOf(world).value();
    }
    /// Drags the handle to a pixel and leaves the item with the outcome.
    void Drag(ProjectionHandle handle, QPointF from, QPointF to,
              ProjectionDrag::Steps steps = ProjectionDrag::Steps::Fine)
    {
        const ProjectionDrag drag(item, handle, *view, from);
        item.material = std::make_shared<Material>(drag.MovedTo(to, steps));
    }
    /// Where a point of the world with this normal is in the images.
    [[nodiscard]] QVector2D PlaceAt(const QVector3D& world, const QVector3D& normal) const
    {
        const QMatrix4x4 meshFromWorld = item.worldFromMesh.inverted();
        const QVector3D point = meshFromWorld.map(world);
        const QVector3D n = item.worldFromMesh.transposed().mapVector(normal);
        studio::Mesh mesh;
        mesh.vertices = {{{point.x(), point.y(), point.z()}, {n.x(), n.y(), n.z()}, {}}};
        return CornerPlaces(mesh, {0, 0, 0}, WrapTermsOf(item, *item.material)).front();
    }
    /// Of a tile, as images repeat.
    static float Apart(const QVector2D& one, const QVector2D& other)
    {
        const QVector2D way = one - other;
        return QVector2D(way.x() - std::round(way.x()), way.y() - std::round(way.y())).length();
    }

    studio::FrameItem item;
    std::optional<studio::ViewOfScene> view;
};
INSTANTIATE_TEST_SUITE_P(Wraps, PlacementHandles, testing::ValuesIn(kWrappings));

constexpr float kVisible = 0.01F;

TEST_P(PlacementHandles, AnArrowTakesTheTextureAlong)
{
    for (int axis = 0; axis < 3; ++axis) {
        const ProjectionHandles before = Handles();
        const QVector3D point = before.card.centre + 0.1F * before.card.across;
        const QVector3D normal = QVector3D::crossProduct(before.card.across, before.card.down);
        const QVector2D place = PlaceAt(point, -normal);
        const QVector3D way = 0.3F * before.ArrowAxis(axis);
        Drag({Kind::Arrow, axis}, PixelOf(before.middle), PixelOf(before.middle + way));
        EXPECT_LT(Apart(PlaceAt(point + way, -normal), place), kVisible) << axis;
    }
}

TEST_P(PlacementHandles, ARingTurnsTheTextureAboutTheMiddle)
{
    if (GetParam().flat == FlatWrapType::TileToFit) {
        GTEST_SKIP() << "how many tiles fit depends on the turn";
    }
    for (int axis = 0; axis < 3; ++axis) {
        const ProjectionHandles before = Handles();
        const float facing =
            QVector3D::dotProduct(before.RingAxis(axis), view->TowardsEye(before.middle));
        if (std::abs(facing) < 0.25F) {
            continue;  // seen from its edge it rolls along, not as exactly
        }
        const auto ring = before.Ring(axis);
        const QVector3D normal = QVector3D::crossProduct(before.card.across, before.card.down);
        const QVector2D place = PlaceAt(before.card.centre, -normal);
        Drag({Kind::Ring, axis}, PixelOf(ring[0]), PixelOf(ring[8]));
        const QQuaternion turn = QQuaternion::fromAxisAndAngle(before.RingAxis(axis), 45.0F);
        const QVector3D turned = before.middle + turn * (before.card.centre - before.middle);
        EXPECT_LT(Apart(PlaceAt(turned, turn * -normal), place), kVisible) << axis;
    }
}

TEST_P(PlacementHandles, TheCardsCornerScalesItsTileAndTheKnobTurnsItWhereItIs)
{
    for (const Kind kind : {Kind::Size, Kind::Width, Kind::Height, Kind::Rotation}) {
        const ProjectionHandles before = Handles();
        const QVector3D centre = before.card.centre;
        const QVector3D normal = -QVector3D::crossProduct(before.card.across, before.card.down);
        EXPECT_LT(Apart(PlaceAt(centre, normal), {0.5F, 0.5F}), kVisible);
        const QVector3D way = before.PlaceOf({kind, 0}) - centre;
        const QVector3D to = kind == Kind::Rotation ? centre - way.length() * before.card.across
                                                    : centre + 1.5F * way;
        Drag({kind, 0}, PixelOf(centre + way), PixelOf(to));
        EXPECT_LT(Apart(PlaceAt(centre, normal), {0.5F, 0.5F}), kVisible) << static_cast<int>(kind);
        const float wide = kind == Kind::Size || kind == Kind::Width ? 1.5F : 1.0F;
        const float high = kind == Kind::Size || kind == Kind::Height ? 1.5F : 1.0F;
        const studio::TileCard card = Handles().card;
        EXPECT_NEAR(card.tile.x() / before.card.tile.x(), wide, kVisible);
        EXPECT_NEAR(card.tile.y() / before.card.tile.y(), high, kVisible);
        // A quarter turn: what was above is on the left.
        const QVector3D across = kind == Kind::Rotation ? -before.card.down : before.card.across;
        EXPECT_GT(QVector3D::dotProduct(card.across, across), 0.999F) << static_cast<int>(kind);
    }
}

TEST_P(PlacementHandles, ShiftSnapsAnglesAndLengths)
{
    const ProjectionHandles before = Handles();
    const auto ring = before.Ring(1);
    Drag({Kind::Ring, 1}, PixelOf(ring[0]), PixelOf(ring[5]), ProjectionDrag::Steps::Snapped);
    EXPECT_EQ(std::fmod(item.material->Projection.turnY, 15.0F), 0.0F);
    Drag({Kind::Arrow, 0}, PixelOf(before.middle), PixelOf(before.ArrowTip(0)),
         ProjectionDrag::Steps::Snapped);
    const float tenths = item.material->Projection.x * 10.0F;
    EXPECT_NEAR(tenths, std::round(tenths), 1.0e-4F);
}

TEST_P(PlacementHandles, AreFoundUnderThePointer)
{
    const ProjectionHandles handles = Handles();
    for (const Kind kind : {Kind::Size, Kind::Width, Kind::Height, Kind::Rotation}) {
        EXPECT_EQ(handles.At(PixelOf(handles.PlaceOf({kind, 0})), *view),
                  std::optional(ProjectionHandle{kind, 0}));
    }
    EXPECT_EQ(handles.At({2.0, 2.0}, *view), std::nullopt);
}

}  // namespace
