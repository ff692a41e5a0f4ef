#include "ControlRig.h"

#include <CorvexMaterial/PluginParameter.h>

namespace {

using namespace CorvexMaterial;
using namespace CorvexTest;

/// A dialog that is open beside the panel; what is tried in it is seen and is no edit.
class Previewed : public WithStartedControl {
protected:
    Previewed()
    {
        rig.platform.choosers.staysOpen = true;
        QObject::connect(&rig.Control(), &Material::Previewed, [this](const MaterialEdit& edit) {
            seen = edit;
            rig.log.Note("Event.Previewed");
        });
        QObject::connect(&rig.Control(), &Material::PreviewEnded,
                         [this] { rig.log.Note("Event.PreviewEnded"); });
    }
    void Try(Colour colour) { rig.platform.choosers.open.value().tried(colour); }
    std::vector<std::string> Events()
    {
        const auto events = rig.log.Order(
            {"Event.Previewed", "Event.PreviewEnded", "Event.Edited", "Event.MaterialChanged"});
        rig.log.Clear();
        return events;
    }

    const std::vector<std::string> kOnce{"Event.Previewed"};
    const std::vector<std::string> kEnded{"Event.PreviewEnded"};
    const std::vector<std::string> kAccepted{"Event.PreviewEnded", "Event.Edited",
                                             "Event.MaterialChanged"};
    MaterialEdit seen;
};

TEST_F(Previewed, ATriedColourIsSeenAndCancelLeavesNoTrace)
{
    const auto before = rig.Previewed();
    rig.Press("cmdSelectColor");
    Try(0x112233);
    Try(0x445566);
    EXPECT_EQ(Events(), (std::vector<std::string>{"Event.Previewed", "Event.Previewed"}));
    EXPECT_EQ(rig.Previewed().Color, 0x445566);
    ASSERT_EQ(seen.rows.size(), 1U);
    EXPECT_EQ(std::get<std::int32_t>(seen.rows[0].value), 0x445566);
    EXPECT_EQ(rig.Read(&IMaterial::get_lVBColor), kWhite);
    EXPECT_EQ(rig.Control().ShownMaterial()->material, before);

    // Turning the preview is no change either, and does not hide what is tried.
    rig.host.Viewport()->listener->ViewChanged();
    EXPECT_EQ(rig.Previewed().Color, 0x445566);
    EXPECT_EQ(Events(), kOnce);

    rig.platform.choosers.Close();
    EXPECT_EQ(Events(), kEnded);
    EXPECT_EQ(rig.Previewed(), before);
    EXPECT_EQ(rig.Read(&IMaterial::get_lVBColor), kWhite);
    EXPECT_EQ(rig.List("cboColor").currentText(), "White");
}

TEST_F(Previewed, OkIsOneEditAfterTheEndOfThePreview)
{
    for (const bool byHost : {false, true}) {
        rig.Press("cmdSelectColor");
        Try(0x112233);
        static_cast<void>(Events());
        rig.platform.choosers.colours = {0x778899};
        byHost ? rig.Control().EndPreview() : rig.platform.choosers.Close();
        EXPECT_EQ(Events(), kAccepted);
        EXPECT_EQ(rig.Previewed().Color, 0x778899);
        EXPECT_FALSE(rig.platform.choosers.open.has_value());
    }
    // Who only looked has edited nothing.
    rig.Press("cmdSelectColor");
    rig.platform.choosers.colours = {0x111111};
    rig.Control().EndPreview();
    EXPECT_TRUE(Events().empty());
    EXPECT_FALSE(rig.platform.choosers.open.has_value());
}

TEST_F(Previewed, WhatTheHostWritesAndTheEndOfTheControlCancelIt)
{
    rig.Press("cmdSelectColor");
    Try(0x112233);
    static_cast<void>(Events());
    rig.Control().put_TextureTilesPerUnit(4.0F);
    EXPECT_EQ(Events(), (std::vector<std::string>{"Event.PreviewEnded", "Event.MaterialChanged"}));
    EXPECT_FALSE(rig.platform.choosers.open.has_value());
    EXPECT_EQ(rig.Previewed().Color, kWhite);

    rig.Press("cmdSelectColor");
    Try(0x112233);
    rig.Terminate();
    EXPECT_EQ(rig.log.CountOf("Event.PreviewEnded"), 1U);
    EXPECT_EQ(rig.platform.settings.Get("MaterialColor"), std::to_string(kWhite));
    EXPECT_FALSE(rig.platform.choosers.open.has_value());
}

TEST_F(Previewed, CropFlatWrapAndColoursOfAPluginAreSeenToo)
{
    CorvexDB::PluginParameter mortar;
    mortar.kind = CorvexDB::ParameterKind::PackedColour;
    rig.ChoosePlugin("Brick", [&] { return Parameters{mortar}; });
    const auto type = [this](const char* button, const char* field, const char* text) {
        rig.Press(button);
        auto* input = OpenDialog()->findChild<QWidget*>(field);
        auto* line = qobject_cast<QLineEdit*>(input);
        (line != nullptr ? line : input->findChild<QLineEdit*>())->setText(text);
    };
    struct Row {
        std::function<void()> tryIt;
        std::function<bool(const CorvexDB::udtMaterial&)> isSeen;
        std::function<void()> cancel;
    };
    const auto reject = [] { OpenDialog()->reject(); };
    const Row rows[] = {
        {[&] { type("cmdTexture", "txtScaleWidth", "0.25"); },
         [](const auto& material) { return material.Placement.scaleU == 0.25F; }, reject},
        {[&] { type("cmdFlatWrapOptions", "txtTilesPerUnit", "7"); },
         [](const auto& material) { return material.TilesPerUnit == 7.0F; }, reject},
        {[&] {
             rig.Press("picParameter_0");
             Try(0x112233);
         },
         [](const auto& material) {
             return material.Plugin == "Brick" && material.PluginParameters.at(0) != 0.0F;
         },
         [this] { rig.platform.choosers.Close(); }},
    };
    const auto before = rig.Previewed();
    rig.edits.clear();
    for (const Row& row : rows) {
        rig.log.Clear();
        row.tryIt();
        EXPECT_TRUE(row.isSeen(rig.Previewed()));
        EXPECT_EQ(rig.log.CountOf("Event.Previewed"), 1U);
        row.cancel();
        EXPECT_EQ(rig.Previewed(), before);
        EXPECT_EQ(rig.log.CountOf("Event.PreviewEnded"), 1U);
        EXPECT_TRUE(rig.edits.empty());
    }
}

}  // namespace
