#include "Navigation.h"
#include "OrbitMotion.h"
#include "PointerHold.h"

#include <gtest/gtest.h>

using namespace studio;

namespace {

constexpr QSizeF kView(300, 200);

QPointF PictureOf(const Camera& camera, const QVector3D& point)
{
    const QVector3D place = (camera.Projection(kView, {}) * camera.View()).map(point);
    return {(static_cast<double>(place.x()) + 1.0) / 2.0 * kView.width(),
            (1.0 - static_cast<double>(place.y())) / 2.0 * kView.height()};
}

TEST(Navigation, EachPresetMovesTheViewAsItsProgramDoes)
{
    using enum ViewAction;
    constexpr auto kAlt = Qt::AltModifier;
    struct Row {
        PointerPress press;
        std::array<ViewAction, 4> actions;  ///< of the studio, Blender, Maya, CAD
    };
    const Row rows[] = {
        {{Qt::LeftButton, {}, false}, {Box, Box, Box, Box}},
        {{Qt::LeftButton, {}, true}, {Orbit, Box, Box, Box}},
        {{Qt::LeftButton, Qt::ShiftModifier, true}, {Pan, Box, Box, Box}},
        {{Qt::LeftButton, Qt::ControlModifier, true}, {Box, Box, Box, Box}},
        {{Qt::LeftButton, kAlt}, {Orbit, Orbit, Orbit, Box}},
        {{Qt::LeftButton, kAlt | Qt::ShiftModifier}, {Pan, Pan, Box, Box}},
        {{Qt::MiddleButton, {}}, {Pan, Orbit, None, Orbit}},
        {{Qt::MiddleButton, Qt::ShiftModifier}, {Pan, Pan, None, Zoom}},
        {{Qt::MiddleButton, Qt::ControlModifier}, {Zoom, Zoom, None, Pan}},
        {{Qt::MiddleButton, kAlt}, {None, None, Pan, None}},
        {{Qt::RightButton, {}}, {Orbit, None, None, None}},
        {{Qt::RightButton, kAlt}, {None, None, Zoom, None}},
        {{Qt::MiddleButton, Qt::KeypadModifier}, {Pan, Orbit, None, Orbit}},
    };
    for (const Row& row : rows) {
        for (const NavigationPreset preset : kNavigationPresets) {
            const auto number = static_cast<std::size_t>(preset);
            EXPECT_EQ(ActionOfDrag(preset, ViewUse::Select, row.press), row.actions.at(number))
                << "preset " << number << ", button " << row.press.button << ", modifiers "
                << row.press.modifiers.toInt();
        }
    }
    // Where nothing can be selected the left button always moves the view.
    EXPECT_EQ(ActionOfDrag(NavigationPreset::Cad, ViewUse::Look, {Qt::LeftButton}), Orbit);
    EXPECT_EQ(
        ActionOfDrag(NavigationPreset::Maya, ViewUse::Look, {Qt::LeftButton, Qt::ShiftModifier}),
        Pan);
}

TEST(Navigation, WhatIsUnderThePointerStaysThere)
{
    Camera camera;
    camera.target = {1.0F, -2.0F, 0.5F};
    const QVector3D point = camera.target + QVector3D(0.6F, 0.4F, -0.5F);
    const QPointF before = PictureOf(camera, point);
    const QPointF moved(37.0, -21.0);
    struct Row {
        ViewAction action;
        QPointF expected;
    };
    for (const Row& row : {Row{ViewAction::Orbit, before}, Row{ViewAction::Zoom, before},
                           Row{ViewAction::Pan, before + moved}}) {
        PointerHold hold;
        hold.action = row.action;
        hold.held = point;
        Camera after = camera;
        for (int step = 0; step < 4; ++step) {
            after = hold.Moved(after, moved / 4.0, kView, camera.distance);
        }
        EXPECT_NE(after, camera);
        const QPointF there = PictureOf(after, point);
        EXPECT_LT((there - row.expected).manhattanLength(), 0.05)
            << static_cast<int>(row.action) << ": " << there.x() << ' ' << there.y();
    }
    // The background counts as being as far away as what is looked at.
    const Ray ray = camera.RayThrough(before, kView);
    const QVector3D beside = PointOnTargetPlane(camera, ray);
    EXPECT_LT(beside.distanceToLine(ray.origin, ray.direction), 1.0e-4F);
    EXPECT_NEAR(QVector3D::dotProduct(beside - camera.target, camera.Eye() - camera.target), 0.0F,
                1.0e-4F);
}

}  // namespace
