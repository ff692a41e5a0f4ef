#include "Picking.h"
#include "BoxShape.h"
#include "ParametricMesh.h"

namespace {

using studio::HitDistance;
using studio::PickNearest;
using studio::Ray;

// Where a line enters an axis-aligned box, from the box's planes alone.
std::optional<float> EntryOf(const Ray& ray, const QVector3D& low, const QVector3D& high)
{
    float enter = -1.0e30F;
    float leave = 1.0e30F;
    for (int axis = 0; axis < 3; ++axis) {
        const float first = (low[axis] - ray.origin[axis]) / ray.direction[axis];
        const float second = (high[axis] - ray.origin[axis]) / ray.direction[axis];
        enter = std::max(enter, std::min(first, second));
        leave = std::min(leave, std::max(first, second));
    }
    return enter <= leave && enter >= 0.0F ? std::optional(enter) : std::nullopt;
}

TEST(Picking, AxisAlignedBoxIsEnteredWhereItsPlanesSay)
{
    const std::pair<QVector3D, QVector3D> centresAndScales[] = {
        {{0, 0, 0}, {1, 1, 1}},
        {{3, -2, 5}, {0.5F, 2, 7}},
        {{1, 1, 1}, {-1, 2, 1}},  // mirrored
        {{0, 0, 0}, {1e-3F, 1e-3F, 1e-3F}},
        {{0, 0, 0}, {1e4F, 1e4F, 1e4F}}};
    for (const auto& [centre, scale] : centresAndScales) {
        QMatrix4x4 worldFromMesh;
        worldFromMesh.translate(centre);
        worldFromMesh.scale(scale);
        const auto shape = BoxShape(worldFromMesh);
        const QVector3D half(std::abs(scale.x()), std::abs(scale.y()), std::abs(scale.z()));
        std::mt19937 random(7);
        std::uniform_real_distribution<float> anywhere(-1.0F, 1.0F);
        int hits = 0;
        for (int round = 0; round < 3000; ++round) {
            const QVector3D from(anywhere(random), anywhere(random), anywhere(random));
            const QVector3D to(anywhere(random), anywhere(random), anywhere(random));
            const QVector3D origin = centre + 4.0F * half.length() * from.normalized();
            const Ray ray{origin, (centre + 1.5F * to * half - origin).normalized()};
            const auto expected = EntryOf(ray, centre - half, centre + half);
            const auto hit = HitDistance(ray, *shape);
            ASSERT_EQ(hit.has_value(), expected.has_value()) << "ray " << round;
            if (hit) {
                ++hits;
                ASSERT_NEAR(*hit, *expected, 1.0e-4 * static_cast<double>(half.length()));
            }
        }
        EXPECT_GT(hits, 500);
        EXPECT_LT(hits, 2900);
    }
}

TEST(Picking, TurnedSphereIsHitWithinItsTessellation)
{
    studio::StudioShape shape("Ball", studio::SphereMesh(2.0F), studio::WholeMaterial({}));
    QMatrix4x4 worldFromMesh;
    worldFromMesh.translate(1, 2, 3);
    worldFromMesh.rotate(40, 1, 2, 3);
    shape.SetWorldFromMesh(worldFromMesh);
    for (float offset = -2.5F; offset <= 2.5F; offset += 0.07F) {
        const auto hit = HitDistance({{1 + offset, 2, 13}, {0, 0, -1}}, shape);
        const float height = 4.0F - offset * offset;
        if (std::abs(offset) < 1.9F) {
            ASSERT_TRUE(hit) << offset;
            EXPECT_NEAR(*hit, static_cast<double>(10.0F - std::sqrt(height)), 0.03) << offset;
        } else if (std::abs(offset) > 2.0F) {
            EXPECT_FALSE(hit) << offset;
        }
    }
}

TEST(Picking, BackFacesCountForDoubleSidedMaterialsOnly)
{
    const Ray fromInside{{0, 0, 0}, {0, 0, 1}};
    QMatrix4x4 mirrored;
    mirrored.scale(1, 1, -1);
    for (const QMatrix4x4& placement : {QMatrix4x4(), mirrored}) {
        EXPECT_FALSE(HitDistance(fromInside, *BoxShape(placement)));
        EXPECT_EQ(HitDistance(fromInside, *BoxShape(placement, true)), 1.0);
    }
}

TEST(Picking, RaysAlongEdgesAndThroughCornersSlipThroughNothing)
{
    const auto box = BoxShape({});
    for (float x = -1.0F; x <= 1.0F; x += 0.125F) {
        // Along the diagonal of the front, where its two triangles meet.
        EXPECT_TRUE(HitDistance({{x, x, 5}, {0, 0, -1}}, *box)) << x;
        EXPECT_TRUE(HitDistance({{x, -1, 5}, {0, 0, -1}}, *box)) << x;
    }
}

TEST(Picking, NearestShapeWinsWhateverTheOrderAndEmptyOnesAreNothing)
{
    const auto at = [](float z) {
        QMatrix4x4 placement;
        placement.translate(0, 0, z);
        return BoxShape(placement);
    };
    const auto back = at(-6);
    const auto front = at(0);
    const auto empty = std::make_shared<studio::StudioShape>();
    QMatrix4x4 flattened;
    flattened.scale(0, 1, 1);
    const auto flat = BoxShape(flattened);
    const Ray ray{{0.2F, 0.3F, 10}, {0, 0, -1}};
    const auto hit = PickNearest(ray, {empty, back, flat, front});
    ASSERT_TRUE(hit);
    EXPECT_EQ(hit->shape, front);
    EXPECT_EQ(PickNearest(ray, {front, back})->shape, front);
    front->SetFlags({.locked = true});
    EXPECT_EQ(PickNearest(ray, {front, back})->shape, back);
    EXPECT_FALSE(PickNearest({{0, 0, 10}, {0, 0, 1}}, {front, back}));  // looking away
    EXPECT_FALSE(PickNearest(ray, {}));
}

}  // namespace
