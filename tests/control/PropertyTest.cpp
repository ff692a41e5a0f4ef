#include "tests/support/ControlRig.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using namespace CorvexTest;
using CorvexDB::udtMaterial;
using CorvexMaterial::IMaterial;
using CorvexMaterial::Status;

/// A property of the material that a host may write.
struct PropertyCase {
    std::string name;
    std::function<void(IMaterial&)> write;
    std::function<void(IMaterial&)> expectRead;
    std::function<void(const udtMaterial&)> expectApplied;
};

template <typename Value, typename Seen>
PropertyCase Row(const char* name, Status (IMaterial::*put)(const Value&),
                 Status (IMaterial::*get)(Value&), Value value, Seen seen)
{
    return {name, [=](IMaterial& control) { EXPECT_EQ((control.*put)(value), Status::Success); },
            [=](IMaterial& control) {
                Value read{};
                EXPECT_EQ((control.*get)(read), Status::Success);
                EXPECT_EQ(read, value);
            },
            [=](const udtMaterial& material) { EXPECT_EQ(seen(material), value); }};
}

template <typename Seen>
PropertyCase FileRow(const char* name, Status (IMaterial::*put)(const std::string&),
                     Status (IMaterial::*get)(std::string&), Seen seen)
{
    return Row<std::string>(name, put, get, "/textures/Mörtel \xE7\x9F\xB3 & \"co\".png", seen);
}

template <typename Seen>
PropertyCase SingleRow(const char* name, Status (IMaterial::*put)(const float&),
                       Status (IMaterial::*get)(float&), float value, Seen seen)
{
    return Row<float>(name, put, get, value, seen);
}

using I = IMaterial;
using M = const udtMaterial&;

const PropertyCase kProperties[] = {
    Row<std::int32_t>("lVBColor", &I::put_lVBColor, &I::get_lVBColor, 0x123456,
                      [](M m) { return m.Color; }),
    FileRow("TextureFileName", &I::put_TextureFileName, &I::get_TextureFileName,
            [](M m) { return m.Textures.primary; }),
    FileRow("TextureOverlayFileName", &I::put_TextureOverlayFileName,
            &I::get_TextureOverlayFileName, [](M m) { return m.Textures.overlay; }),
    FileRow("TextureBumpmapFileName", &I::put_TextureBumpmapFileName,
            &I::get_TextureBumpmapFileName, [](M m) { return m.Textures.bump; }),
    FileRow("TextureSpecularMapFileName", &I::put_TextureSpecularMapFileName,
            &I::get_TextureSpecularMapFileName, [](M m) { return m.Textures.specular; }),
    FileRow("TextureEnvironmentMapFileName", &I::put_TextureEnvironmentMapFileName,
            &I::get_TextureEnvironmentMapFileName, [](M m) { return m.Textures.environment; }),
    FileRow("TextureAlphaFileName", &I::put_TextureAlphaFileName, &I::get_TextureAlphaFileName,
            [](M m) { return m.Textures.alpha; }),
    Row<CorvexDB::FlatWrapType>("FlatWrapType", &I::put_FlatWrapType, &I::get_FlatWrapType,
                                CorvexDB::FlatWrapType::SizeToFit, [](M m) { return m.FlatWrap; }),
    Row<CorvexDB::WrapType>("WrapType", &I::put_WrapType, &I::get_WrapType,
                            CorvexDB::WrapType::Cylindrical, [](M m) { return m.Wrap; }),
    // Values without a short decimal form: they must come back bit for bit.
    SingleRow("TextureTilesPerUnit", &I::put_TextureTilesPerUnit, &I::get_TextureTilesPerUnit,
              0.1F + 0.2F, [](M m) { return m.TilesPerUnit; }),
    SingleRow("TextureOriginU", &I::put_TextureOriginU, &I::get_TextureOriginU, 1.0F / 3.0F,
              [](M m) { return m.Placement.originU; }),
    SingleRow("TextureOriginV", &I::put_TextureOriginV, &I::get_TextureOriginV, 1.0F / 7.0F,
              [](M m) { return m.Placement.originV; }),
    SingleRow("TextureScaleU", &I::put_TextureScaleU, &I::get_TextureScaleU, -2.0F / 3.0F,
              [](M m) { return m.Placement.scaleU; }),
    SingleRow("TextureScaleV", &I::put_TextureScaleV, &I::get_TextureScaleV, 1e-7F,
              [](M m) { return m.Placement.scaleV; }),
    Row<CorvexDB::ApplyMode>("ApplyRelative", &I::put_ApplyRelative, &I::get_ApplyRelative,
                             CorvexDB::ApplyMode::Relative,
                             [](M) { return CorvexDB::ApplyMode::Relative; }),
};

class WritableProperty : public ::testing::TestWithParam<PropertyCase> {};

TEST_P(WritableProperty, ReadsBackReachesTheShapeAndSurvivesARestart)
{
    ControlRig rig;
    rig.Start();
    GetParam().write(rig.Control());
    EXPECT_EQ(rig.Changes(), 1U);
    GetParam().expectRead(rig.Control());
    GetParam().expectApplied(rig.Previewed());

    rig.Restart();
    if (GetParam().name != "ApplyRelative") {  // written, but never read back
        GetParam().expectRead(rig.Control());
        GetParam().expectApplied(rig.Previewed());
    }
}

INSTANTIATE_TEST_SUITE_P(Control, WritableProperty, ::testing::ValuesIn(kProperties),
                         [](const auto& row) { return row.param.name; });

TEST(Properties, AnUnknownEnumerationValueIsRefusedAndChangesNothing)
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
    EXPECT_EQ(rig.Changes(), 0U);

    CorvexDB::WrapType wrap{};
    CorvexDB::ApplyMode mode{};
    control.get_WrapType(wrap);
    control.get_ApplyRelative(mode);
    EXPECT_EQ(wrap, CorvexDB::WrapType::Spherical);
    EXPECT_EQ(mode, CorvexDB::ApplyMode::Absolute);
}

TEST(Properties, ReadOnlyOnesFollowTheirControls)
{
    ControlRig rig;
    rig.Start();
    rig.Press("chkFlipV");
    rig.Press("chkDoubleSided");
    Choose(rig.List("cboAlphaTest"), "Greater/Eq.");
    Type(rig.Field("txtAlphaTestReference"), "129");

    auto& control = rig.Control();
    float flipU = -1.0F;
    float flipV = -1.0F;
    bool doubleSided = false;
    std::int32_t alphaTest = -1;
    std::int32_t reference = -1;
    EXPECT_EQ(control.get_MaterialWrapOrientationU(flipU), Status::Success);
    EXPECT_EQ(control.get_MaterialWrapOrientationV(flipV), Status::Success);
    EXPECT_EQ(control.get_MaterialDoubleSided(doubleSided), Status::Success);
    EXPECT_EQ(control.get_MaterialAlphaTest(alphaTest), Status::Success);
    EXPECT_EQ(control.get_MaterialAlphaTestReference(reference), Status::Success);
    EXPECT_EQ(flipU, 0.0F);
    EXPECT_EQ(flipV, 1.0F);
    EXPECT_TRUE(doubleSided);
    EXPECT_EQ(alphaTest, 6);
    EXPECT_EQ(reference, 129);
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
