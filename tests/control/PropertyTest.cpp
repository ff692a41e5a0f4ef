#include "ControlRig.h"

namespace {

using namespace CorvexTest;
using CorvexMaterial::Status;
using I = CorvexMaterial::IMaterial;
using Properties = WithStartedControl;

/// What a host writes it reads back, the shape has it, and both once more after a restart.
template <typename Value, typename Seen>
void ExpectKept(Status (I::*put)(const Value&), Status (I::*get)(Value&),
                std::type_identity_t<Value> value, Seen seen)
{
    ControlRig rig;
    rig.Start();
    EXPECT_EQ((rig.Control().*put)(value), Status::Success);
    EXPECT_EQ(rig.Changes(), 1U);
    EXPECT_EQ(rig.Read(get), value);
    EXPECT_EQ(seen(rig.Previewed()), value);
    rig.Restart();
    EXPECT_EQ(rig.Read(get), value);
    EXPECT_EQ(seen(rig.Previewed()), value);
}

TEST(Property, ReadsBackReachesTheShapeAndSurvivesARestart)
{
    using M = const CorvexDB::udtMaterial&;
    ExpectKept(&I::put_lVBColor, &I::get_lVBColor, 0x123456, [](M m) { return m.Color; });
    ExpectKept(&I::put_WrapType, &I::get_WrapType, CorvexDB::WrapType::Cylindrical,
               [](M m) { return m.Wrap; });
    ExpectKept(&I::put_FlatWrapType, &I::get_FlatWrapType, CorvexDB::FlatWrapType::SizeToFit,
               [](M m) { return m.FlatWrap; });
}

TEST(Property, OfATextureTakesAnyPath)
{
    const auto expect = [](auto put, auto get, std::string CorvexDB::TextureFiles::*file) {
        ExpectKept(put, get, "/textures/Mörtel \xE7\x9F\xB3 & \"co\".png",
                   [file](const CorvexDB::udtMaterial& m) { return m.Textures.*file; });
    };
    using F = CorvexDB::TextureFiles;
    expect(&I::put_TextureFileName, &I::get_TextureFileName, &F::primary);
    expect(&I::put_TextureOverlayFileName, &I::get_TextureOverlayFileName, &F::overlay);
    expect(&I::put_TextureBumpmapFileName, &I::get_TextureBumpmapFileName, &F::bump);
    expect(&I::put_TextureSpecularMapFileName, &I::get_TextureSpecularMapFileName, &F::specular);
    expect(&I::put_TextureEnvironmentMapFileName, &I::get_TextureEnvironmentMapFileName,
           &F::environment);
    expect(&I::put_TextureAlphaFileName, &I::get_TextureAlphaFileName, &F::alpha);
}

TEST(Property, ThatIsANumberComesBackBitForBit)
{
    ExpectKept(&I::put_TextureTilesPerUnit, &I::get_TextureTilesPerUnit, 0.1F + 0.2F,
               [](const CorvexDB::udtMaterial& m) { return m.TilesPerUnit; });
    const auto expect = [](auto put, auto get, float value, float CorvexDB::TexturePlacement::*at) {
        ExpectKept(put, get, value,
                   [at](const CorvexDB::udtMaterial& m) { return m.Placement.*at; });
    };
    using P = CorvexDB::TexturePlacement;
    expect(&I::put_TextureOriginU, &I::get_TextureOriginU, 1.0F / 3.0F, &P::originU);
    expect(&I::put_TextureOriginV, &I::get_TextureOriginV, 1.0F / 7.0F, &P::originV);
    expect(&I::put_TextureScaleU, &I::get_TextureScaleU, -2.0F / 3.0F, &P::scaleU);
    expect(&I::put_TextureScaleV, &I::get_TextureScaleV, 1e-7F, &P::scaleV);
}

TEST_F(Properties, AnUnknownEnumerationValueOrNoNumberIsRefusedAndChangesNothing)
{
    auto& control = rig.Control();
    EXPECT_EQ(control.put_WrapType(static_cast<CorvexDB::WrapType>(3)), Status::InvalidArgument);
    EXPECT_EQ(control.put_WrapType(static_cast<CorvexDB::WrapType>(-1)), Status::InvalidArgument);
    EXPECT_EQ(control.put_FlatWrapType(static_cast<CorvexDB::FlatWrapType>(7)),
              Status::InvalidArgument);
    EXPECT_EQ(control.put_ApplyRelative(static_cast<CorvexDB::ApplyMode>(3)),
              Status::InvalidArgument);
    for (const auto& [put, listSize] :
         {std::pair(&I::put_lRaytracePredefinedType, 5), {&I::put_lRaytraceColorPatternType, 24}}) {
        EXPECT_EQ((control.*put)(-1), Status::InvalidArgument);
        EXPECT_EQ((control.*put)(listSize), Status::InvalidArgument);
    }
    for (const float value : {std::nanf(""), HUGE_VALF}) {
        for (const auto put :
             {&I::put_TextureTilesPerUnit, &I::put_TextureOriginU, &I::put_TextureOriginV,
              &I::put_TextureScaleU, &I::put_TextureScaleV}) {
            EXPECT_EQ((control.*put)(value), Status::InvalidArgument);
        }
        EXPECT_EQ(control.SetTextureCropping(value, 0, 1, 1), Status::InvalidArgument);
        EXPECT_EQ(control.SetTextureCropping(0, value, 1, 1), Status::InvalidArgument);
        EXPECT_EQ(control.SetTextureCropping(0, 0, value, 1), Status::InvalidArgument);
        EXPECT_EQ(control.SetTextureCropping(0, 0, 1, value), Status::InvalidArgument);
    }
    EXPECT_EQ(rig.Changes(), 0U);
    EXPECT_EQ(control.put_lRaytraceColorPatternType(23), Status::Success);

    EXPECT_EQ(rig.Read(&I::get_WrapType), CorvexDB::WrapType::Spherical);
    EXPECT_EQ(rig.Read(&I::get_ApplyRelative), CorvexDB::ApplyMode::Absolute);
    EXPECT_EQ(control.put_ApplyRelative(CorvexDB::ApplyMode::Relative), Status::Success);
    EXPECT_EQ(rig.Read(&I::get_ApplyRelative), CorvexDB::ApplyMode::Relative);
}

TEST_F(Properties, ReadOnlyOnesFollowTheirControls)
{
    rig.Press("chkFlipV");
    rig.Press("chkDoubleSided");
    Choose(rig.List("cboAlphaTest"), "Greater/Eq.");
    Type(rig.Field("txtAlphaTestReference"), "129");

    EXPECT_EQ(rig.Read(&I::get_MaterialWrapOrientationU), 0.0F);
    EXPECT_EQ(rig.Read(&I::get_MaterialWrapOrientationV), 1.0F);
    EXPECT_TRUE(rig.Read(&I::get_MaterialDoubleSided));
    EXPECT_EQ(rig.Read(&I::get_MaterialAlphaTest), 6);
    EXPECT_EQ(rig.Read(&I::get_MaterialAlphaTestReference), 129);
}

TEST_F(Properties, EveryRaytraceTypeIsStoredAndOneAloneShutsTheAmounts)
{
    for (const std::int32_t type : {1, 2, 1, -1, 0}) {
        EXPECT_EQ(rig.Control().put_lRaytraceType(type), Status::Success);
        EXPECT_EQ(rig.Previewed().RayTrace.MaterialType, type);
        EXPECT_EQ(rig.Find<QWidget>("txtAmbient").isEnabled(), type != 1) << type;
    }
}

TEST_F(Properties, EnabledIsThePanelsOwnStateInsideADisabledWindow)
{
    QWidget window;
    rig.Control().setParent(&window);
    for (const bool enabled : {true, false}) {
        EXPECT_EQ(rig.Control().put_Enabled(enabled), Status::Success);
        for (const bool windowEnabled : {false, true}) {
            window.setEnabled(windowEnabled);
            EXPECT_EQ(rig.Read(&I::get_Enabled), enabled) << windowEnabled;
        }
    }
    rig.Control().setParent(nullptr);
}

TEST_F(Properties, ColourOutsideTheListShowsAsCustomAndDropsTheTopByte)
{
    rig.Control().put_lVBColor(0x010203);
    EXPECT_EQ(rig.List("cboColor").currentText(), "Custom");
    rig.Control().put_lVBColor(16775408);
    EXPECT_EQ(rig.List("cboColor").currentText(), "Alice Blue");
    EXPECT_EQ(rig.log.CountOf("Choosers.ChooseColour"), 0U);
}

}  // namespace
