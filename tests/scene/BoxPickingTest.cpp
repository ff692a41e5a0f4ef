#include "BoxPicking.h"
#include "BoxShape.h"
#include "ParametricMesh.h"
#include "Picking.h"

namespace {

using namespace studio;

constexpr QSizeF kView(45, 30);

/// Rays through a grid of points of the box: how many hit, and whether all that hits the shape at
/// all is in the box.
struct Sampled {
    int inside = 0;
    int outside = 0;
};

Sampled SampledHits(const PickBox& pick, const StudioShape& shape)
{
    Sampled hits;
    for (double y = 0.5; y < kView.height(); ++y) {
        for (double x = 0.5; x < kView.width(); ++x) {
            const QPointF point(x, y);
            if (HitDistance(pick.camera.RayThrough(point, kView), shape)) {
                ++(pick.box.contains(point) ? hits.inside : hits.outside);
            }
        }
    }
    return hits;
}

TEST(BoxPicking, TakesWhatRaysThroughTheBoxMeet)
{
    const auto ball = std::make_shared<StudioShape>("Ball", SphereMesh(0.7F), WholeMaterial({}));
    QMatrix4x4 mirrored;
    mirrored.translate(-0.8F, 0.3F, 0.4F);
    mirrored.rotate(30, 1, 2, 3);
    mirrored.scale(-0.5F, 0.8F, 0.4F);
    const auto box = BoxShape(mirrored);
    Camera camera;
    std::mt19937 random(11);
    std::uniform_real_distribution<double> share(0.0, 1.0);
    const auto anywhere = [&](const QRectF& part) {
        return part.topLeft() +
               QPointF(share(random) * part.width(), share(random) * part.height());
    };
    const QRectF all({}, kView);
    const QRectF corner({}, kView / 4.0);
    int touched = 0;
    int whole = 0;
    for (int round = 0; round < 24; ++round) {
        camera.yawDegrees = static_cast<float>(round) * 25.0F;
        camera.distance = round % 3 == 0 ? 0.9F : 5.0F;  // close by, parts are behind the eye
        // Every other one is wide.
        const bool isWide = round % 2 == 0;
        const QRectF dragged(anywhere(isWide ? corner : all),
                             isWide ? all.bottomRight() - anywhere(corner) : anywhere(all));
        const PickBox touching{camera, kView, dragged.normalized(), BoxRule::Touching};
        PickBox inside = touching;
        inside.rule = BoxRule::Inside;
        for (const auto& shape : {ball, box}) {
            const Sampled hits = SampledHits(touching, *shape);
            const bool isTouched = !PickInBox(touching, {shape}).empty();
            const bool isWhole = !PickInBox(inside, {shape}).empty();
            if (hits.inside > 0) {
                EXPECT_TRUE(isTouched) << "round " << round;
            } else {
                // A sliver may lie between two rays.
                const QRectF wider = touching.box.adjusted(-1.5, -1.5, 1.5, 1.5);
                EXPECT_TRUE(!isTouched || SampledHits({camera, kView, wider}, *shape).inside > 0)
                    << "round " << round;
            }
            EXPECT_FALSE(isWhole && hits.outside > 0) << "round " << round;
            touched += isTouched ? 1 : 0;
            whole += isWhole ? 1 : 0;
        }
    }
    EXPECT_GT(touched, 30);
    EXPECT_GT(whole, 3);
}

TEST(BoxPicking, TakesWhatIsBehindOthersAndNothingThatCannotBePicked)
{
    const auto at = [](float z) {
        QMatrix4x4 place;
        place.translate(0, 0, z);
        return BoxShape(place);
    };
    const std::vector<std::shared_ptr<StudioShape>> shapes{at(0), at(-3), at(-6), at(-9), at(90)};
    shapes[1]->SetFlags({.hidden = true});
    shapes[2]->SetFlags({.locked = true});
    Camera camera;
    camera.yawDegrees = camera.pitchDegrees = 0.0F;
    camera.distance = 20.0F;
    const PickBox all{camera, kView, QRectF({}, kView)};
    using Shapes = std::vector<std::shared_ptr<StudioShape>>;
    EXPECT_EQ(PickInBox(all, shapes), (Shapes{shapes[0], shapes[3]}));
    EXPECT_EQ(PickInBox({camera, kView, {1, 1, 1, 1}}, shapes), Shapes());
    EXPECT_EQ(PickInBox({camera, kView, {22.5, 15, 0, 0}}, shapes).size(), 2U);
}

}  // namespace
