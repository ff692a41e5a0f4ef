#include "StudioRig.h"

#include "ShapeHiding.h"
#include "SqliteMaterialLibrary.h"
#include "StudioSceneExporter.h"
#include <CorvexMaterial/NamedColours.h>

#include <QLabel>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QToolButton>

#include <set>

namespace {

using studio::AppliedMaterial;

class Editing : public StudioTest::StartedStudio {
protected:
    std::vector<CorvexDB::udtMaterial> Materials()
    {
        std::vector<CorvexDB::udtMaterial> materials;
        for (const auto& shape : rig.Window().Scene().All()) {
            materials.push_back(shape->Material());
        }
        return materials;
    }
};

TEST_F(Editing, SelectingShowsEachMaterialAndWithoutASelectionNoneChanges)
{
    const auto before = Materials();
    for (std::size_t i = 0; i < before.size(); ++i) {
        rig.Select({i});
        EXPECT_EQ(rig.Read(&CorvexMaterial::IMaterial::get_lVBColor), before[i].Color);
        EXPECT_EQ(rig.TextOf("txtSpecular"), QString::number(before[i].Specular));
        EXPECT_EQ(rig.TextOf("txtTransparency"), QString::number(before[i].Transparency));
    }
    rig.Select({});
    rig.Type("txtAmbient", "33");
    rig.Choose("cboColor", "Bronze");
    EXPECT_EQ(Materials(), before);
    EXPECT_EQ(History().count(), 0);
}

TEST_F(Editing, WhatIsHiddenIsNeitherDrawnNorSelectedUntilThatIsUndone)
{
    const auto drawn = [this] {
        studio::RaytraceScene scene =
            studio::RaytraceSceneOf(const_cast<studio::StudioScene&>(rig.Window().Scene()), {});
        EXPECT_EQ(scene.names.size(), scene.frame.items.size());
        return scene.names;
    };
    const auto all = drawn();
    rig.Select({0, 1});
    rig.Window().Hiding().SetHidden({rig.Shape(1), rig.Shape(2)}, true);
    rig.Window().Hiding().SetLocked({rig.Shape(3)}, true);
    EXPECT_EQ(drawn().size(), all.size() - 2);
    EXPECT_EQ(rig.Window().Selected().All(), studio::ShapeList{rig.Shape(0)});
    rig.Trigger("Select All");
    EXPECT_EQ(rig.Window().Selected().All().size(), all.size() - 3);
    rig.Window().Hiding().Isolate({rig.Shape(2)});
    EXPECT_EQ(drawn(), std::vector{all[2]});
    EXPECT_EQ(History().undoText(), "Isolate " + QString::fromStdString(all[2]));
    for (int steps = History().count(); steps > 0; --steps) {
        History().undo();
    }
    EXPECT_EQ(drawn(), all);
    EXPECT_EQ(rig.Window().Selected().All(), (studio::ShapeList{rig.Shape(0), rig.Shape(1)}));
    rig.Window().Hiding().ShowAll();
    EXPECT_EQ(History().index(), 0) << "nothing to show";
}

TEST_F(Editing, EachDragOfANumberIsOneStepAndNoneWhereItEndsAsItBegan)
{
    rig.Select({0, 1});
    const auto before = Materials();
    auto& label = rig.Find<QWidget>("lblAmbient");
    const auto drag = [&label](std::initializer_list<int> places) {
        QTest::mousePress(&label, Qt::LeftButton, {}, {5, 5});
        for (const int place : places) {
            QTest::mouseMove(&label, {place, 5});
        }
        QTest::mouseRelease(&label, Qt::LeftButton, {}, {5, 5});
    };
    drag({-30, -40, -50});
    drag({-30, -35, -40});
    EXPECT_EQ(History().count(), 2) << "quick as they came";
    drag({-30, -60, -30});
    EXPECT_EQ(History().count(), 2);
    History().undo();
    History().undo();
    EXPECT_EQ(Materials(), before);
}

TEST_F(Editing, TypedTextIsOneStepThatTakesPanelAndShapeBack)
{
    rig.Select({1});
    const QString before = rig.TextOf("txtAmbient");
    rig.Type("txtAmbient", "135");
    ASSERT_EQ(History().count(), 1);
    EXPECT_EQ(History().undoText(),
              "Change ambient of " + QString::fromStdString(rig.Shape(1)->Name()));
    EXPECT_EQ(rig.Shape(1)->Material().Ambient, 135);

    History().undo();
    EXPECT_EQ(rig.TextOf("txtAmbient"), before);
    EXPECT_EQ(rig.Shape(1)->Material().Ambient, before.toInt());
    History().redo();
    EXPECT_EQ(rig.TextOf("txtAmbient"), "135");
    EXPECT_EQ(rig.Shape(1)->Material().Ambient, 135);
    EXPECT_EQ(History().count(), 1);

    History().clear();
    rig.Type("txtAmbient", "7");
    rig.Type("txtAmbient", "135");
    EXPECT_EQ(History().count(), 0) << "it ends where it began";
}

TEST_F(Editing, TwoTriesAreKeptInSlotsAndComparedWithWhatWasSelected)
{
    rig.Select({0, 1});
    const auto before = Materials();
    rig.Press("slotB");
    EXPECT_EQ(History().count(), 0) << "an empty slot takes what is worn";
    rig.Type("txtAmbient", "77");
    const auto second = Materials();
    rig.Press("slotA");
    EXPECT_EQ(Materials(), before);
    EXPECT_EQ(rig.TextOf("txtAmbient"), QString::number(before[1].Ambient));
    rig.Press("slotB");
    EXPECT_EQ(Materials(), second);
    History().undo();
    EXPECT_EQ(Materials(), before) << "a step";
    History().redo();

    auto& compare = rig.Find<QToolButton>("compare");
    const auto drawn = [this] { return rig.Shape(0)->Item().material->Ambient; };
    QTest::mousePress(&compare, Qt::LeftButton);
    EXPECT_EQ(drawn(), before[0].Ambient);
    EXPECT_EQ(Materials(), second) << "nothing has changed";
    QTest::mouseRelease(&compare, Qt::LeftButton);
    EXPECT_EQ(drawn(), 77);
    QTest::keyPress(&rig.Window().Viewport(), Qt::Key_C);
    EXPECT_EQ(drawn(), before[0].Ambient);
    QTest::keyRelease(&rig.Window().Viewport(), Qt::Key_C);
    EXPECT_EQ(drawn(), 77);
    rig.Select({2});
    EXPECT_TRUE(rig.Find<QToolButton>("slotA").isChecked()) << "each shape has its own";
}

TEST_F(Editing, TheLargePreviewShowsThePanelsObjectOrTheSelectedShapes)
{
    rig.Select({3});
    rig.Trigger("Large Preview");
    auto& view = rig.Find<studio::ViewportWidget>("largePreview");
    const auto item = [&view] {
        const studio::Frame frame = view.CurrentFrame();
        return frame.items.size() == 1 ? frame.items.front() : studio::FrameItem();
    };
    EXPECT_NE(item().mesh, rig.Shape(3)->Item().mesh);
    EXPECT_EQ(item().material->Color, rig.Shape(3)->Material().Color);
    rig.Press("previewShapes");
    EXPECT_EQ(item().mesh, rig.Shape(3)->Item().mesh);
    rig.Type("txtAmbient", "13");
    EXPECT_EQ(item().material->Ambient, 13);
}

TEST_F(Editing, OfSeveralShapesEachTakesWhatWasTouchedAndKeepsTheRest)
{
    rig.Shape(2)->SetApplied(rig.Shape(3)->Applied());
    const auto before = Materials();
    auto expected = before;
    rig.Select({0, 2, 3});
    rig.Choose("cboColor", "Bronze");
    for (const std::size_t i : {0U, 2U, 3U}) {
        expected[i].Color = CorvexMaterial::MakeColour({140, 120, 36});
    }
    EXPECT_EQ(Materials(), expected);
    EXPECT_EQ(rig.Shape(2)->Applied().gathered, rig.Shape(3)->Applied().gathered)
        << "the shapes keep copies of one material";
    ASSERT_EQ(History().count(), 1);
    EXPECT_EQ(History().undoText(), "Change color of 3 shapes");
    rig.Type("txtAmbient", "41");
    EXPECT_EQ(rig.Shape(0)->Material().Ambient, 41);
    EXPECT_EQ(rig.Shape(0)->Material().Textures, before[0].Textures);
    EXPECT_EQ(History().count(), 2) << "keys of one text are one step, the first of them too";
    EXPECT_EQ(History().undoText(), "Change ambient of 3 shapes");
    rig.Press("cmdMaterialResetDefaults");
    EXPECT_EQ(rig.Shape(0)->Material(), rig.Shape(3)->Material()) << "a whole material";
    while (History().canUndo()) {
        History().undo();
    }
    EXPECT_EQ(Materials(), before);
}

TEST_F(Editing, PanelTellsWhereTheSelectedShapesDifferAfterSelectionEditAndUndo)
{
    const auto told = [this](const char* control) {
        QCoreApplication::processEvents();
        return rig.Find<QWidget>(control).accessibleDescription();
    };
    const auto& affects = rig.Find<QLabel>("lblAffects");
    rig.Shape(2)->SetApplied(rig.Shape(3)->Applied());
    CorvexDB::udtMaterial dim;
    dim.Ambient = 5;
    rig.Shape(0)->SetApplied(studio::WholeMaterial(dim));
    rig.Select({0, 2, 3});
    const int shown = rig.Shape(3)->Material().Ambient;
    EXPECT_EQ(told("txtAmbient"), QString("Multiple values: %1, 5").arg(shown));
    EXPECT_EQ(rig.TextOf("txtAmbient"), QString::number(shown));
    EXPECT_EQ(affects.text(), "Affects 3 shapes, 2 materials");
    EXPECT_TRUE(affects.isVisible());
    rig.Type("txtAmbient", "7");
    EXPECT_TRUE(told("txtAmbient").isEmpty());
    EXPECT_FALSE(told("cboColor").isEmpty());
    History().undo();
    EXPECT_FALSE(told("txtAmbient").isEmpty());
    rig.Select({2});
    EXPECT_TRUE(told("cboColor").isEmpty());
    EXPECT_FALSE(affects.isVisible());
}

TEST_F(Editing, ChangingThePreviewLeavesDifferingShapesAlone)
{
    const auto before = Materials();
    rig.Select({0, 1, 2});
    rig.Window().Panel().put_lPreviewPrimitive(0);
    rig.Window().Panel().RenderMaterial();
    EXPECT_EQ(Materials(), before);
    EXPECT_EQ(History().count(), 0);
}

TEST_F(Editing, WayOfApplyingReachesTheSelectionAsAStepAndStaysWithItsShapes)
{
    const auto modeOf = [this](std::size_t i) {
        return rig.Shape(i)->Applied().gathered->applyMode;
    };
    const auto ticked = [this] { return rig.Find<QCheckBox>("chkApplyRelative").isChecked(); };
    rig.Select({0, 1});
    rig.Press("chkApplyRelative");
    EXPECT_EQ(modeOf(1), CorvexDB::ApplyMode::Relative);
    ASSERT_EQ(History().count(), 1);
    rig.Select({2});
    EXPECT_FALSE(ticked());
    rig.Type("txtAmbient", "33");
    EXPECT_EQ(modeOf(2), CorvexDB::ApplyMode::Absolute);
    History().undo();
    rig.Select({1});
    EXPECT_TRUE(ticked());
    History().undo();
    EXPECT_EQ(modeOf(1), CorvexDB::ApplyMode::Absolute);
    EXPECT_FALSE(ticked());
    EXPECT_EQ(History().index(), 0);
}

TEST_F(Editing, ChosenWrapReplacesTheCoordinatesOfTheMeshAlsoWhenItIsTheSame)
{
    using CorvexSG::CoordinateMode;
    const AppliedMaterial own = studio::WholeMaterial({}, CoordinateMode::FromMesh);
    for (const char* button : {"optWrapType_0", "optWrapType_2"}) {
        History().clear();
        rig.Shape(1)->SetApplied(own);
        rig.Select({0});
        rig.Select({1});
        rig.Press(button);
        EXPECT_EQ(rig.Shape(1)->Applied().coordinates, CoordinateMode::FromWrap) << button;
        rig.Press(button);
        ASSERT_EQ(History().count(), 1) << button;
        EXPECT_TRUE(History().undoText().startsWith("Change wrap of "));
        History().undo();
        EXPECT_EQ(rig.Shape(1)->Material(), own.gathered->material);
        EXPECT_EQ(rig.Shape(1)->Applied().coordinates, CoordinateMode::FromMesh);
    }
}

TEST_F(Editing, UndoSelectsAndShowsTheShapesItChanges)
{
    rig.Select({0});
    rig.Choose("cboAlphaTest", "Greater");
    rig.Select({2});
    History().undo();
    ASSERT_EQ(rig.Window().Selected().All().size(), 1U);
    EXPECT_EQ(rig.Window().Selected().Latest(), rig.Shape(0));
    EXPECT_EQ(rig.Find<QComboBox>("cboAlphaTest").currentText(), "Never");
    EXPECT_FALSE(rig.Find<QLineEdit>("txtAlphaTestReference").isEnabled());
}

TEST_F(Editing, UndoKeyInsideAFieldBelongsToTheHistory)
{
    ASSERT_TRUE(QTest::qWaitForWindowActive(&rig.Window()));
    rig.Select({0});
    const int before = rig.Shape(0)->Material().Ambient;
    auto& field = rig.Find<QLineEdit>("txtAmbient");
    field.setFocus();
    rig.Type("txtAmbient", "11");
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(rig.Shape(0)->Material().Ambient, before);
    EXPECT_FALSE(History().canUndo());
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(rig.Shape(0)->Material().Ambient, 11);

    auto& search = rig.Find<QLineEdit>("searchMaterials");
    search.setFocus();
    QTest::keyClicks(&search, "gold");
    QTest::keyClick(&search, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(search.text(), "gold");
    EXPECT_EQ(rig.Shape(0)->Material().Ambient, 11) << "a search is no part of the material";
}

TEST_F(Editing, MenusHaveALetterOfItsOwnForEachEntryAndTellWhatItDoes)
{
    for (const QMenu* menu : rig.Window().menuBar()->findChildren<QMenu*>()) {
        std::set<QString> letters;
        for (const QAction* action : menu->actions()) {
            if (!action->isSeparator() && !menu->title().isEmpty()) {
                const QString letter = QKeySequence::mnemonic(action->text()).toString();
                EXPECT_FALSE(letter.isEmpty()) << qPrintable(action->text());
                EXPECT_TRUE(letters.insert(letter).second) << qPrintable(action->text());
                EXPECT_FALSE(action->statusTip().isEmpty()) << qPrintable(action->text());
            }
        }
    }
}

TEST_F(Editing, TwoEditsJoinOnlyWhenTheyAreOneGesture)
{
    struct Row {
        int pause;  ///< in milliseconds
        const char* secondField;
        std::size_t secondShape;
        int steps;
    };
    const auto before = Materials();
    for (const auto& [pause, field, shape, steps] :
         {Row{900, "txtAmbient", 0, 1}, Row{1100, "txtAmbient", 0, 2}, Row{10, "txtEmissive", 0, 2},
          Row{10, "txtAmbient", 1, 2}}) {
        History().clear();
        rig.Select({0});
        rig.Type("txtAmbient", "4");
        rig.now += std::chrono::milliseconds(pause);
        rig.Select({shape});
        rig.Type(field, "77");
        EXPECT_EQ(History().count(), steps) << field << " after " << pause;
        while (History().canUndo()) {
            History().undo();
        }
        EXPECT_EQ(Materials(), before);
    }
}

TEST_F(Editing, NamesOfCustomFieldsAreShownAtOnceAndTakeTheValuesAlong)
{
    const auto name = [this](const char* lines, bool move) {
        rig.Trigger("Options...");
        rig.Find<QPlainTextEdit>("customFields").setPlainText(lines);
        rig.Find<QCheckBox>("moveFields").setChecked(move);
        EXPECT_EQ(rig.Find<QLabel>("fieldsNote").text().isEmpty(), move);
        rig.Find<QDialog>("OptionsDialog").accept();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    const auto fields = [this] { return rig.Shape(0)->Material().CustomFields; };
    name("Maker\nPrice", true);
    rig.Select({0});
    rig.Type("txtCustomMaterialFieldValue_0", "Stone & Co");
    rig.Window().Panel().put_bMaterialLibraryPanel(true);
    rig.Press("cmdMaterialLibraryAdd");
    rig.Select({});
    name("Price\nMaker", true);
    EXPECT_EQ(fields()[1], "Stone & Co");
    EXPECT_EQ(rig.Host().Materials().MaterialAt(0).CustomFields, fields());
    EXPECT_EQ(rig.TextOf("txtCustomMaterialFieldValue_1"), "Stone & Co");
    EXPECT_EQ(rig.Find<QLabel>("lblCustomMaterialFieldName_1").text(), "Maker");
    name("Maker\nPrice", false);
    EXPECT_EQ(fields()[1], "Stone & Co");
}

TEST_F(Editing, OnlyWhatIsDrawnHasTheSceneDrawnAnew)
{
    const AppliedMaterial before = studio::WholeMaterial({});
    const auto looksDifferent = [&](const std::function<void(CorvexSG::GatheredMaterial&)>& edit) {
        auto gathered = std::make_shared<CorvexSG::GatheredMaterial>(*before.gathered);
        edit(*gathered);
        return studio::LooksDifferent({nullptr, before, {gathered, before.coordinates}});
    };
    EXPECT_FALSE(looksDifferent([](auto& edited) { edited.material.CustomFields[2] = "Acme"; }));
    EXPECT_FALSE(looksDifferent([](auto& edited) { edited.material.RayTrace.Reflection = 3.0F; }));
    EXPECT_TRUE(looksDifferent([](auto& edited) { edited.material.PluginParameters = {3.0F}; }));
    EXPECT_TRUE(
        looksDifferent([](auto& edited) { edited.applyMode = CorvexDB::ApplyMode::Relative; }));
}

// A drag that never pauses is one step however long it takes.
TEST_F(Editing, LongDragStaysOneStep)
{
    rig.Select({0});
    for (int value = 1; value <= 40; ++value) {
        rig.now += std::chrono::milliseconds(300);
        rig.Find<QSlider>("sldSpecular").setValue(value);
    }
    EXPECT_EQ(rig.Shape(0)->Material().Specular, 40);
    EXPECT_EQ(History().count(), 1);
}

}  // namespace
