#include "ControlRig.h"

namespace {

using namespace CorvexTest;
using CorvexDB::udtMaterial;
using CorvexMaterial::IMaterial;
using CorvexMaterial::Status;

/// A property of the material that a host may write.
struct PropertyCase {
    std::string name;
    std::function<void(IMaterial&)> write;
    std::function<void(ControlRig&)> expectRead;
    std::function<void(const udtMaterial&)> expectApplied;
};

template <typename Value, typename Seen>
PropertyCase Row(const char* name, Status (IMaterial::*put)(const Value&),
                 Status (IMaterial::*get)(Value&), std::type_identity_t<Value> value, Seen seen)
{
    return {name, [=](IMaterial& control) { EXPECT_EQ((control.*put)(value), Status::Success); },
            [=](ControlRig& rig) { EXPECT_EQ(rig.Read(get), value); },
            [=](const udtMaterial& material) { EXPECT_EQ(seen(material), value); }};
}

constexpr const char* kPath = "/textures/Mörtel \xE7\x9F\xB3 & \"co\".png";

using I = IMaterial;
using M = const udtMaterial&;

const PropertyCase kProperties[] = {
    Row("lVBColor", &I::put_lVBColor, &I::get_lVBColor, 0x123456, [](M m) { return m.Color; }),
    Row("TextureFileName", &I::put_TextureFileName, &I::get_TextureFileName, kPath,
        [](M m) { return m.Textures.primary; }),
    Row("TextureOverlayFileName", &I::put_TextureOverlayFileName, &I::get_TextureOverlayFileName,
        kPath, [](M m) { return m.Textures.overlay; }),
    Row("TextureBumpmapFileName", &I::put_TextureBumpmapFileName, &I::get_TextureBumpmapFileName,
        kPath, [](M m) { return m.Textures.bump; }),
    Row("TextureSpecularMapFileName", &I::put_TextureSpecularMapFileName,
        &I::get_TextureSpecularMapFileName, kPath, [](M m) { return m.Textures.specular; }),
    Row("TextureEnvironmentMapFileName", &I::put_TextureEnvironmentMapFileName,
        &I::get_TextureEnvironmentMapFileName, kPath, [](M m) { return m.Textures.environment; }),
    Row("TextureAlphaFileName", &I::put_TextureAlphaFileName, &I::get_TextureAlphaFileName, kPath,
        [](M m) { return m.Textures.alpha; }),
    Row("FlatWrapType", &I::put_FlatWrapType, &I::get_FlatWrapType,
        CorvexDB::FlatWrapType::SizeToFit, [](M m) { return m.FlatWrap; }),
    Row("WrapType", &I::put_WrapType, &I::get_WrapType, CorvexDB::WrapType::Cylindrical,
        [](M m) { return m.Wrap; }),
    // Values without a short decimal form: they must come back bit for bit.
    Row("TextureTilesPerUnit", &I::put_TextureTilesPerUnit, &I::get_TextureTilesPerUnit,
        0.1F + 0.2F, [](M m) { return m.TilesPerUnit; }),
    Row("TextureOriginU", &I::put_TextureOriginU, &I::get_TextureOriginU, 1.0F / 3.0F,
        [](M m) { return m.Placement.originU; }),
    Row("TextureOriginV", &I::put_TextureOriginV, &I::get_TextureOriginV, 1.0F / 7.0F,
        [](M m) { return m.Placement.originV; }),
    Row("TextureScaleU", &I::put_TextureScaleU, &I::get_TextureScaleU, -2.0F / 3.0F,
        [](M m) { return m.Placement.scaleU; }),
    Row("TextureScaleV", &I::put_TextureScaleV, &I::get_TextureScaleV, 1e-7F,
        [](M m) { return m.Placement.scaleV; }),
    Row("ApplyRelative", &I::put_ApplyRelative, &I::get_ApplyRelative,
        CorvexDB::ApplyMode::Relative, [](M) { return CorvexDB::ApplyMode::Relative; }),
};

class WritableProperty : public ::testing::TestWithParam<PropertyCase> {};

TEST_P(WritableProperty, ReadsBackReachesTheShapeAndSurvivesARestart)
{
    ControlRig rig;
    rig.Start();
    GetParam().write(rig.Control());
    EXPECT_EQ(rig.Changes(), 1U);
    GetParam().expectRead(rig);
    GetParam().expectApplied(rig.Previewed());

    rig.Restart();
    if (GetParam().name != "ApplyRelative") {  // written, but never read back
        GetParam().expectRead(rig);
        GetParam().expectApplied(rig.Previewed());
    }
}

INSTANTIATE_TEST_SUITE_P(Control, WritableProperty, ::testing::ValuesIn(kProperties),
                         [](const auto& row) { return row.param.name; });

TEST(Properties, AnUnknownEnumerationValueOrNoNumberIsRefusedAndChangesNothing)
{
    ControlRig rig;
    rig.Start();
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
}

TEST(Properties, ReadOnlyOnesFollowTheirControls)
{
    ControlRig rig;
    rig.Start();
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

TEST(Properties, EveryRaytraceTypeIsStoredAndOneAloneShutsTheAmounts)
{
    ControlRig rig;
    rig.Start();
    for (const std::int32_t type : {1, 2, 1, -1, 0}) {
        EXPECT_EQ(rig.Control().put_lRaytraceType(type), Status::Success);
        EXPECT_EQ(rig.Previewed().RayTrace.MaterialType, type);
        EXPECT_EQ(rig.Find<QWidget>("txtAmbient").isEnabled(), type != 1) << type;
    }
}

TEST(Properties, EnabledIsThePanelsOwnStateInsideADisabledWindow)
{
    ControlRig rig;
    rig.Start();
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

TEST(Properties, ColourOutsideTheListShowsAsCustomAndDropsTheTopByte)
{
    ControlRig rig;
    rig.Start();
    rig.Control().put_lVBColor(0x010203);
    EXPECT_EQ(rig.List("cboColor").currentText(), "Custom");
    rig.Control().put_lVBColor(16775408);
    EXPECT_EQ(rig.List("cboColor").currentText(), "Alice Blue");
    EXPECT_EQ(rig.log.CountOf("Choosers.ChooseColour"), 0U);
}

}  // namespace
