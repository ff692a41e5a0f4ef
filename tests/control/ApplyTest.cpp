#include "ControlRig.h"
#include "SampleMaterial.h"

namespace {

using namespace CorvexTest;
using CorvexDB::ApplyMode;
using CorvexDB::udtMaterial;
using CorvexMaterial::Status;

class Apply : public WithStartedControl {
protected:
    Status ApplyTo(RecordingShape& target, bool wrap)
    {
        const CorvexSG::udtSelectionType kind{CorvexSG::SelectionKind::Faces};
        const CorvexSG::cdtCoordinateMode mode{CorvexSG::CoordinateMode::FromWrap};
        return rig.Control().ApplyShapeMaterial(scene, target, wrap, &group, &camera, kind,
                                                {4, 8, 15}, true, mode, {0.5F, 2.0F});
    }

    RecordingScene scene{rig.log};
    RecordingShape shape{rig.log, "selected", rig.host.sceneGraph.missingMeshes};
    CorvexSG::Group group;
    CorvexSG::Group camera;
};

TEST_F(Apply, AHostsMaterialIsShownOnceAndReachesAShapeUnchanged)
{
    const udtMaterial material = FullMaterial();
    EXPECT_EQ(rig.Control().CopyFieldToFormMaterial(material), Status::Success);
    EXPECT_EQ(rig.Changes(), 1U);
    rig.log.Clear();

    EXPECT_EQ(ApplyTo(shape, false), Status::Success);
    EXPECT_EQ(shape.Material(), material);
    EXPECT_EQ(rig.Changes(), 0U);
    EXPECT_EQ(rig.log.CountOf("Viewport.Draw"), 0U);
}

TEST_F(Apply, HandsTheArgumentsOnAndChoosesTheFormByWrap)
{
    ApplyTo(shape, false);
    ApplyTo(shape, true);
    ASSERT_EQ(shape.Applied().size(), 2U);
    EXPECT_FALSE(shape.Applied()[0].wrapped);
    EXPECT_TRUE(shape.Applied()[1].wrapped);
    for (const AppliedMaterial& applied : shape.Applied()) {
        EXPECT_EQ(applied.scene, &scene);
        EXPECT_EQ(applied.group, &group);
        EXPECT_EQ(applied.camera, &camera);
        EXPECT_EQ(applied.selectionKind, CorvexSG::SelectionKind::Faces);
        EXPECT_EQ(applied.selection, (std::vector<std::int32_t>{4, 8, 15}));
        EXPECT_TRUE(applied.optimizePoints);
        EXPECT_EQ(applied.coordinateMode, CorvexSG::CoordinateMode::FromWrap);
        EXPECT_EQ(applied.coordinateModeData, (std::vector<float>{0.5F, 2.0F}));
    }
}

TEST_F(Apply, GathersOncePerChangeHoweverManyShapesFollow)
{
    ApplyTo(shape, false);
    ApplyTo(shape, true);
    const auto first = shape.Applied()[0].gathered;
    EXPECT_EQ(first, shape.Applied()[1].gathered);
    rig.Control().put_lVBColor(255);
    ApplyTo(shape, false);
    EXPECT_EQ(shape.Material().Color, 255);
    EXPECT_EQ(first->material.Color, CorvexMaterial::kWhite) << "a kept material must not change";
}

TEST_F(Apply, WhatAPluginChangesWhileItIsAskedIsNotLost)
{
    bool acts = false;
    rig.ChoosePlugin("Acting", [&] {
        if (std::exchange(acts, false)) {
            rig.Control().put_lVBColor(255);
        }
        return Parameters{};
    });
    rig.Control().SetTexturesAvoidStateChange("/p", "", "", "", "", "");
    acts = true;
    ApplyTo(shape, false);
    ApplyTo(shape, false);
    EXPECT_EQ(shape.Material().Color, 255);
}

TEST_F(Apply, TickDecidesTheApplyModeAndFilesOnlyLeavesTheOtherTextureAttributes)
{
    rig.Control().CopyFieldToFormMaterial(FullMaterial());
    rig.Press("chkApplyRelative");
    ApplyTo(shape, false);
    EXPECT_EQ(shape.Applied().back().gathered->applyMode, ApplyMode::Relative);

    EXPECT_EQ(rig.Control().put_ApplyRelative(ApplyMode::FilesOnly), Status::Success);
    EXPECT_EQ(rig.Tick("chkApplyRelative").checkState(), Qt::PartiallyChecked);
    ApplyTo(shape, false);
    EXPECT_EQ(shape.Applied().back().gathered->applyMode, ApplyMode::FilesOnly);
    udtMaterial expected = FullMaterial();
    expected.TextureAlphaChannelUse = 0;
    expected.AlphaIsTransparent = false;
    expected.OverlayTranslucency = 50.0F;
    EXPECT_EQ(shape.Material(), expected);

    for (int press = 0; press < 3; ++press) {
        rig.Press("chkApplyRelative");
        EXPECT_NE(rig.Tick("chkApplyRelative").checkState(), Qt::PartiallyChecked);
    }
}

TEST_F(Apply, ARecordWithAnImpossiblePositionOrNumberIsRefusedWhole)
{
    const auto spoil = {
        +[](udtMaterial& material) { material.AlphaTest = 8; },
        +[](udtMaterial& material) { material.AlphaTest = -1; },
        +[](udtMaterial& material) { material.TextureAlphaChannelUse = 5; },
        +[](udtMaterial& material) { material.Wrap = static_cast<CorvexDB::WrapType>(12); },
        +[](udtMaterial& material) { material.OverlayTranslucency = 1e20F; },
        +[](udtMaterial& material) { material.OverlayTranslucency = std::nanf(""); },
        +[](udtMaterial& material) { material.TilesPerUnit = std::nanf(""); },
        +[](udtMaterial& material) { material.Placement.scaleV = HUGE_VALF; },
        +[](udtMaterial& material) { material.RayTrace.Roughness = std::nanf(""); },
        +[](udtMaterial& material) { material.RayTrace.ColorPatternColor[3].blue = HUGE_VALF; },
    };
    for (const auto& change : spoil) {
        udtMaterial material = FullMaterial();
        change(material);
        EXPECT_NE(rig.Control().CopyFieldToFormMaterial(material), Status::Success);
        EXPECT_EQ(rig.Changes(), 0U);
        ApplyTo(shape, false);
        EXPECT_EQ(shape.Material(), udtMaterial());
    }
    rig.Press("chkFlipU");
    EXPECT_EQ(rig.Changes(), 1U);
}

TEST_F(Apply, SixPathsCanBeSetWithoutARefresh)
{
    rig.Tick("chkFlipU");  // shows the page of the primary layer
    const auto tabs = [&] { return rig.Find<QTabBar>("tabChannels").grab().toImage(); };
    const QImage unused = tabs();
    EXPECT_EQ(rig.Control().SetTexturesAvoidStateChange("/p", "/a", "/o", "/b", "/s", "/e"),
              Status::Success);
    EXPECT_TRUE(
        rig.log.Order({"Shape.ApplyMaterial", "Viewport.Draw", "Event.MaterialChanged"}).empty());
    ApplyTo(shape, false);
    EXPECT_EQ(shape.Material().Textures,
              (CorvexDB::TextureFiles{"/p", "/o", "/a", "/b", "/s", "/e"}));
    EXPECT_EQ(rig.Find<QLabel>("lblTextureFile").toolTip(), "/p");
    EXPECT_FALSE(tabs() == unused) << "used layers are marked";
}

}  // namespace
