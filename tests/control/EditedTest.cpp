#include "FaultSteps.h"
#include "TouchedRows.h"
#include <CorvexMaterial/Schema.h>

namespace {

using namespace CorvexTest;
using CorvexDB::udtMaterial;
using CorvexMaterial::Attribute;
using CorvexMaterial::AttributeValue;
using CorvexMaterial::MaterialEdit;
using CorvexMaterial::TouchedRows;
using enum CorvexMaterial::Attribute;

/// As a host would that keeps a record.
void Put(const MaterialEdit& edit, udtMaterial& record)
{
    for (const auto& [attribute, element, value] : edit.rows) {
        if (attribute == CustomFields) {
            record.CustomFields.at(element) = std::get<std::string>(value);
        } else if (attribute != ApplyRelative) {
            std::visit(
                [&, which = attribute](const auto& given) {
                    RowOf(which).path.set(record, AttributeValue(given));
                },
                value);
        }
    }
}

TouchedRows RowsOf(const MaterialEdit& edit)
{
    TouchedRows rows;
    for (const auto& row : edit.rows) {
        rows.push_back({row.attribute, row.element});
    }
    return rows;
}

class Edited : public WithStartedControl {
protected:
    Edited()
    {
        OfferPluginAndField(rig);
        rig.edits.clear();
        rig.log.Clear();
    }
};

TEST_F(Edited, TellsAllThatAUserChangesRightBeforeTheMaterialChanged)
{
    for (const Step& step : UserActions(rig)) {
        rig.Control().put_bMaterialPanel(true);
        OfferPluginAndField(rig);
        udtMaterial told = rig.Previewed();
        rig.edits.clear();
        rig.log.Clear();
        step.act(rig);
        for (const MaterialEdit& edit : rig.edits) {
            EXPECT_FALSE(edit.rows.empty()) << step.name;
            Put(edit, told);
        }
        EXPECT_EQ(told, rig.Previewed()) << step.name;
        const auto events = rig.log.Order({"Event.Edited", "Event.MaterialChanged"});
        for (std::size_t i = 0; i < events.size(); ++i) {
            const bool isPaired =
                events[i] != "Event.Edited" ||
                (i + 1 < events.size() && events[i + 1] == "Event.MaterialChanged");
            EXPECT_TRUE(isPaired) << step.name;
        }
    }
}

TEST_F(Edited, TellsNothingOfWhatTheHostDoesAndOfWhatIsThePanelsOwn)
{
    rig.Press("cmdMaterialRemember");
    rig.Press("cmdRemember");
    rig.host.Viewport()->listener->ViewChanged();
    EXPECT_TRUE(rig.edits.empty());
    for (const auto& steps : {Members(), Properties()}) {
        for (const Step& step : steps) {
            step.act(rig);
            EXPECT_TRUE(rig.edits.empty()) << step.name;
        }
    }
}

TEST_F(Edited, NamesWhatWasTouchedAndWhatBelongsToItAlsoWhenTheValueStays)
{
    const auto accepting = [this](const char* button, std::function<void(QDialog&)> act = {}) {
        const DialogAnswer answer([act](QDialog& dialog) {
            if (act) {
                act(dialog);
            }
            Click(*dialog.findChild<QAbstractButton*>("cmdOK"));
        });
        rig.Press(button);
    };
    struct Row {
        const char* name;
        std::function<void()> act;
        TouchedRows touched;
    };
    const Row rows[] = {
        {"the wrap that it has", [&] { rig.Press("optWrapType_0"); }, {{WrapType}}},
        {"a crop", [&] { accepting("cmdTexture"); }, {{OriginU}, {OriginV}, {ScaleU}, {ScaleV}}},
        {"the flat wrap",
         [&] { accepting("cmdFlatWrapOptions"); },
         {{FlatWrapType}, {TilesPerUnit}}},
        {"a parameter",
         [&] { rig.Find<QSlider>("sldParameter_0").setValue(6); },
         {{Plugin}, {PluginParameters}}},
        {"the second field",
         [&] {
             rig.host.customFields.names = {"Supplier", "Price"};
             rig.Control().UpdateCustomFieldNames();
             rig.Field("txtCustomMaterialFieldValue_1").setText("9");
         },
         {{CustomFields, 1}}},
        {"no number", [&] { Type(rig.Field("txtAmbient"), "x"); }, {}},
        {"a deleted overlay",
         [&] {
             rig.Find<QTabBar>("tabChannels").setCurrentIndex(2);
             rig.Press("cmdDeleteTexture");
         },
         {{OverlayTranslucency}, {TextureOverlay}}},
        {"a finish that is put back",
         [&] {
             accepting("cmdMaterialExtended", [](QDialog& dialog) {
                 auto& slider = *dialog.findChild<QSlider*>("sldReflection");
                 slider.setValue(3);
                 slider.setValue(0);
             });
         },
         {{RayTraceReflection}}},
        {"the extended dialog's OK alone", [&] { accepting("cmdMaterialExtended"); }, {}},
        {"the amounts",
         [&] { rig.Press("cmdMiscellaneousResetToDefaults"); },
         {{Color}, {Emissive}, {Specular}, {Transparency}, {Ambient}}},
    };
    for (const Row& row : rows) {
        rig.edits.clear();
        row.act();
        TouchedRows told;
        for (const MaterialEdit& edit : rig.edits) {
            EXPECT_FALSE(edit.isWhole) << row.name;
            const TouchedRows more = RowsOf(edit);
            told.insert(told.end(), more.begin(), more.end());
        }
        EXPECT_TRUE(told == row.touched) << row.name << ": " << told.size();
    }
}

TEST_F(Edited, IsWholeForEveryChoiceInALibraryAndForTheDefaults)
{
    rig.host.materialLibrary.items.resize(2);
    rig.Control().put_bMaterialLibraryPanel(true);
    auto& browser = dynamic_cast<RecordingEditport&>(rig.Find<QWidget>("dfeMaterialLibrary"));
    const auto expectWhole = [this](std::size_t rows) {
        ASSERT_EQ(rig.edits.size(), 1U);
        EXPECT_TRUE(rig.edits.front().isWhole);
        EXPECT_EQ(rig.edits.front().rows.size(), rows);
        rig.edits.clear();
    };
    const std::size_t all = CorvexMaterial::RowsOfMaterial().size();
    for (const int index : {0, 1}) {
        browser.listener->ItemSelected(index);
        expectWhole(all);
    }
    rig.Press("cmdMaterialResetDefaults");
    expectWhole(all + 1);  // and the way of applying
    rig.Press("cmdMaterialResetUserDefaults");
    expectWhole(all - 6);  // two of the raytracer and the four alphas are no defaults of a user
}

TEST_F(Edited, ComesWithTheNextWhereItCouldNotBeShownUnlessTheHostChangesThePanel)
{
    for (const bool changesPanel : {false, true}) {
        rig.log.FailEach("Viewport.Draw", Fault::ClassifiedError);
        Type(rig.Field("txtAmbient"), "3");
        EXPECT_TRUE(rig.edits.empty());
        rig.log.Clear();
        if (changesPanel) {
            rig.Control().CopyFieldToFormMaterial({});
        }
        Type(rig.Field("txtEmissive"), "4");
        ASSERT_EQ(rig.edits.size(), 1U);
        EXPECT_TRUE(RowsOf(rig.edits.front()) ==
                    (changesPanel ? TouchedRows{{Emissive}} : TouchedRows{{Emissive}, {Ambient}}));
        rig.edits.clear();
    }
}

}  // namespace
