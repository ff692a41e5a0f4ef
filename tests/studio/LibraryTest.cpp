#include "LibraryBrowsers.h"
#include "LibraryDrag.h"
#include "LibraryReading.h"
#include "LibraryView.h"
#include "MaterialDragging.h"
#include "MaterialText.h"
#include "SampleFolder.h"
#include "SceneMaterials.h"
#include "SqliteTextureLibrary.h"
#include "StudioRig.h"
#include "ViewportWidget.h"

#include <QMenu>
#include <QMimeData>
#include <QUrl>

namespace {

using studio::LibraryFile;
using studio::LibraryKind;
using studio::LibraryView;

class Library : public StudioTest::StartedStudio {
protected:
    Library()
    {
        rig.Window().resize(1000, 1200);  // all of the panel is in sight
        rig.Window().Panel().put_bMaterialLibraryPanel(true);
        rig.Window().Panel().put_bTexturePanel(true);
        QCoreApplication::processEvents();
    }

    LibraryFile& Materials()
    {
        LibraryFile* file = rig.Host().Browsers().Open(LibraryKind::Materials);
        if (file == nullptr) {
            throw std::logic_error("no library is open");
        }
        return *file;
    }
    QUndoStack& Steps() { return rig.Window().LibraryHistory(); }
    LibraryView& View() { return rig.Find<LibraryView>("materialEntries"); }
    std::vector<std::string> Names()
    {
        std::vector<std::string> names;
        for (int row = 0; row < View().model()->rowCount(); ++row) {
            names.push_back(View().model()->index(row, 0).data().toString().toStdString());
        }
        return names;
    }
    void AddMaterial(const char* ambient)
    {
        rig.Type("txtAmbient", ambient);
        rig.Press("cmdMaterialLibraryAdd");
        QCoreApplication::processEvents();
    }
    void ClickEntry(int row)
    {
        View().scrollTo(View().model()->index(row, 0));
        const QPoint place = View().visualRect(View().model()->index(row, 0)).center();
        QTest::mouseClick(View().viewport(), Qt::LeftButton, {}, place);
    }
    bool DropInTheMiddle(const QMimeData& data)
    {
        QWidget& viewport = rig.Window().Viewport();
        return CorvexTest::Drop(viewport, data, viewport.rect().center());
    }
};

TEST_F(Library, FirstStartHasLibrariesAndTellsNothing)
{
    EXPECT_TRUE(rig.prompts.shown.empty());
    EXPECT_EQ(rig.Find<QComboBox>("cboMaterialLibrary").currentText(), "Gems.cvm");
    EXPECT_EQ(rig.Find<QComboBox>("cboTextureLibrary").currentText(), "Gems.cvt");
    EXPECT_TRUE(Names().empty());
    EXPECT_EQ(rig.Find<QLabel>("miscField").text(), "Material Library Loaded");
}

TEST_F(Library, AddAndDeleteAreStepsOfTheHistory)
{
    AddMaterial("11");
    AddMaterial("22");
    ASSERT_EQ(Names().size(), 2U);
    const std::string second = Names()[1];
    EXPECT_EQ(View().currentIndex().row(), 1) << "what was added is marked";
    EXPECT_EQ(Steps().count(), 2);

    Steps().undo();
    EXPECT_EQ(Names().size(), 1U);
    Steps().redo();
    ASSERT_EQ(Names().size(), 2U);
    EXPECT_EQ(Names()[1], second);

    ClickEntry(0);
    QTest::keyClick(&View(), Qt::Key_Delete);
    QCoreApplication::processEvents();
    EXPECT_EQ(Names(), std::vector{second});
    Steps().undo();
    ASSERT_EQ(Names().size(), 2U);
    EXPECT_EQ(Names()[1], second) << "back to where it was";
    EXPECT_EQ(View().currentIndex().row(), 0) << "and marked";
    EXPECT_TRUE(rig.prompts.shown.empty());

    rig.Select({0});
    rig.Type("txtAmbient", "33");
    const int steps = Steps().index();
    rig.Window().ResetScene();
    EXPECT_EQ(Steps().index(), steps);
    EXPECT_EQ(History().count(), 0) << "those of shapes that are gone are gone";
    View().setFocus();
    QTest::keyClick(&View(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Steps().index(), steps - 1) << "inside a library the key is the library's";
    while (Steps().canUndo()) {
        Steps().undo();
    }
    EXPECT_TRUE(Names().empty());
    rig.Stop();
    rig.Start();
    EXPECT_TRUE(Names().empty()) << "undone in the file too";
}

TEST_F(Library, ChosenMaterialIsShownAndPutOnTheSelection)
{
    AddMaterial("77");
    rig.Select({0, 1});
    const auto before = rig.Shape(1)->Applied();
    ClickEntry(0);
    EXPECT_EQ(rig.TextOf("txtAmbient"), "77");
    EXPECT_EQ(rig.Shape(0)->Material().Ambient, 77);
    EXPECT_EQ(rig.Shape(1)->Applied(), rig.Shape(0)->Applied());
    const CorvexDB::udtMaterial chosen = rig.Shape(1)->Material();
    const auto nameOf = [this](std::size_t i) { return rig.Shape(i)->Applied().identity->name; };
    EXPECT_EQ(nameOf(0), Names()[0]);
    rig.Type("txtSpecular", "3");
    EXPECT_EQ(nameOf(0), Names()[0]) << "an edit keeps the name";
    EXPECT_EQ(History().count(), 2);
    ClickEntry(0);
    EXPECT_EQ(rig.Shape(1)->Material(), chosen) << "the chosen entry gives its material again";
    History().undo();
    History().undo();
    rig.Select({2});
    const std::string other = nameOf(2);
    rig.Press("cmdMaterialResetDefaults");
    EXPECT_EQ(nameOf(2), other) << "the defaults have no name";
    History().undo();
    History().undo();
    EXPECT_EQ(rig.Shape(1)->Applied(), before) << "both shapes were one step";

    // The panel shows the last of a mixed selection, which has the material already.
    rig.Select({1});
    ClickEntry(0);
    rig.Select({0, 1});
    ClickEntry(0);
    EXPECT_EQ(rig.Shape(0)->Material().Ambient, 77);
    EXPECT_EQ(rig.Shape(0)->Material(), rig.Shape(1)->Material());
}

TEST_F(Library, MissingOneLeavesNothingOpenBehindAnEmptyPanel)
{
    AddMaterial("11");
    EXPECT_EQ(rig.Window().Panel().LoadMaterialLibrary("Lost.cvm"),
              CorvexMaterial::Status::FileFailed);
    EXPECT_EQ(rig.Host().Browsers().Open(LibraryKind::Materials), nullptr);
    EXPECT_TRUE(Names().empty());
    EXPECT_EQ(rig.Find<QLabel>("miscField").text(), "Lost.cvm was not opened.");
}

TEST_F(Library, GetsItsRowsBackAndNothingElseAfterItFilledTheDock)
{
    using CorvexMaterial::IMaterial;
    LibraryFile::Create(rig.PathOf("data/Other.cvm").toStdString(), LibraryKind::Materials);
    rig.Select({0});
    rig.Choose("cboColor", "Bronze");
    rig.Window().Panel().put_lPreviewPrimitive(4);
    rig.Window().Panel().LoadMaterialLibrary("Other.cvm");
    const int height = rig.Find<QWidget>("dfeMaterialLibrary").height();
    const auto material = rig.Shape(0)->Material();
    const int steps = History().count();
    const auto& more = rig.Find<QWidget>("cmdMaterialLibraryMore");

    rig.Trigger("Fill the Dock");
    EXPECT_FALSE(more.isEnabled());
    rig.Trigger("Saved Layout");
    EXPECT_TRUE(more.isEnabled());
    EXPECT_EQ(rig.Find<QWidget>("dfeMaterialLibrary").height(), height);
    EXPECT_EQ(rig.Read(&IMaterial::get_lPreviewPrimitive), 4);
    EXPECT_EQ(rig.Find<QComboBox>("cboColor").currentText(), "Bronze");
    EXPECT_EQ(rig.Find<QComboBox>("cboMaterialLibrary").currentText(), "Other.cvm");
    EXPECT_EQ(rig.Shape(0)->Material(), material);
    EXPECT_EQ(History().count(), steps);
}

TEST_F(Library, ShowsWhatAnotherProgramChangedWhenTheWindowIsBack)
{
    AddMaterial("11");
    AddMaterial("22");
    ClickEntry(1);
    const std::string marked = Names()[1];
    auto theirs = LibraryFile::Open(Materials().Path(), LibraryKind::Materials);
    theirs.Remove(theirs.IdAt(0));
    theirs.Add(studio::EntryOfMaterial({"Theirs", {}}, "/"));
    QEvent back(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&rig.Window(), &back);
    EXPECT_EQ(Names(), (std::vector<std::string>{marked, "Theirs"}));
    EXPECT_EQ(View().currentIndex().row(), 0) << "what was marked is marked";
}

TEST_F(Library, ContextMenuWorksOnTheEntryUnderThePointer)
{
    AddMaterial("11");
    AddMaterial("22");
    const auto names = Names();
    const auto choose = [&](QPoint place, const char* action) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, View().mapToGlobal(place));
        QCoreApplication::sendEvent(View().viewport(), &event);
        auto& menu = rig.Find<QMenu>("entryMenu");
        auto* found = menu.findChild<QAction*>(QLatin1String(action));
        const bool enabled = found->isEnabled();
        found->trigger();
        delete &menu;
        QCoreApplication::processEvents();
        return enabled;
    };
    const auto at = [&](int row) {
        return View().visualRect(View().model()->index(row, 0)).center();
    };
    EXPECT_TRUE(choose(at(0), "chooseEntry"));
    EXPECT_EQ(rig.TextOf("txtAmbient"), "11");
    EXPECT_TRUE(choose(at(1), "deleteEntry"));
    EXPECT_EQ(Names(), std::vector{names[0]});
    EXPECT_FALSE(choose(View().viewport()->rect().bottomRight(), "deleteEntry"));
    EXPECT_EQ(Names(), std::vector{names[0]});
}

TEST_F(Library, RenamingIsAStepAndMovesNothing)
{
    AddMaterial("11");
    AddMaterial("22");
    const auto names = Names();
    ClickEntry(0);
    QTest::keyClick(&View(), Qt::Key_F2);
    auto* editor = View().findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->setText("Onyx");
    QTest::keyClick(editor, Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Names().front() == "Onyx"; }, 2000));
    EXPECT_EQ(Names(), (std::vector<std::string>{"Onyx", names[1]}));
    auto& search = rig.Find<QLineEdit>("searchMaterials");
    search.setText("onyx");
    EXPECT_EQ(Names(), std::vector<std::string>{"Onyx"});
    search.clear();
    Steps().undo();
    EXPECT_EQ(Names(), names);
    Steps().redo();
    EXPECT_EQ(Names()[0], "Onyx");
}

TEST_F(Library, KeysAreTheBrowsersOnlyWhileItIsSeenAndHasTheFocus)
{
    AddMaterial("11");
    const auto press = [this] {
        QTest::keyClick(rig.Window().windowHandle(), Qt::Key_G);
        QTest::keyClick(rig.Window().windowHandle(), Qt::Key_Delete);
        QCoreApplication::processEvents();
        EXPECT_EQ(Names().size(), 1U);
        EXPECT_EQ(rig.TextOf("searchMaterials"), "");
    };
    for (QWidget* viewport : rig.Window().findChildren<studio::ViewportWidget*>()) {
        if (!viewport->isVisible()) {
            continue;
        }
        ClickEntry(0);
        QTest::mouseClick(viewport, Qt::LeftButton, {}, viewport->rect().center());
        press();
    }
    ClickEntry(0);
    rig.Window().Dock().hide();
    press();
}

TEST_F(Library, DroppedOnTheWindowIsOpened)
{
    struct Row {
        const char* file;
        LibraryKind kind;
        QString shown;
    };
    rig.Window().Dock().hide();
    for (const auto& [file, kind, shown] :
         {Row{"data/Other.cvm", LibraryKind::Materials, "Other.cvm"},
          Row{"Far.CVM", LibraryKind::Materials, rig.PathOf("Far.CVM")},
          Row{"Far.cvt", LibraryKind::Textures, rig.PathOf("Far.cvt")}}) {
        LibraryFile::Create(rig.PathOf(file).toStdString(), kind);
        QWidget* const targets[] = {&rig.Window(), &rig.Window().Dock()};
        EXPECT_TRUE(CorvexTest::DropFile(*targets[kind == LibraryKind::Textures], rig.PathOf(file),
                                         {20, 20}));
        EXPECT_EQ(rig.Host().Browsers().Open(kind)->Path(), rig.PathOf(file).toStdString());
        const bool materials = kind == LibraryKind::Materials;
        const auto& list =
            rig.Find<QComboBox>(materials ? "cboMaterialLibrary" : "cboTextureLibrary");
        EXPECT_EQ(list.placeholderText(), shown);
        EXPECT_TRUE(list.isVisible());
    }
    EXPECT_TRUE(rig.prompts.shown.empty());
}

TEST_F(Library, CopiedIntoTheFolderIsInTheListWhenItIsOpened)
{
    LibraryFile::Create(rig.PathOf("data/Copied.cvm").toStdString(), LibraryKind::Materials);
    auto& list = rig.Find<QComboBox>("cboMaterialLibrary");
    CorvexTest::Click(list);
    EXPECT_GE(list.findText("Copied.cvm"), 0);
    EXPECT_EQ(list.currentText(), "Gems.cvm");
    EXPECT_NE(list.focusPolicy(), Qt::WheelFocus) << "the wheel passes it by";
    list.hidePopup();
}

TEST_F(Library, StepsOfALibraryThatIsNoLongerOpenStillWork)
{
    AddMaterial("11");
    const std::string first = Materials().Path();
    const std::string other = rig.PathOf("data/Other.cvm").toStdString();
    LibraryFile::Create(other, LibraryKind::Materials);
    EXPECT_EQ(rig.Window().Panel().LoadMaterialLibrary("Other.cvm"),
              CorvexMaterial::Status::Success);
    Steps().undo();
    EXPECT_EQ(LibraryFile::Open(first, LibraryKind::Materials).Count(), 0);
    Steps().redo();
    EXPECT_EQ(LibraryFile::Open(first, LibraryKind::Materials).Count(), 1);
    EXPECT_TRUE(Names().empty());

    QFile::remove(QString::fromStdString(first));
    Steps().undo();
    EXPECT_EQ(rig.prompts.shown.size(), 1U) << "told, and the step is gone";
    EXPECT_FALSE(Steps().canRedo());
}

TEST_F(Library, AddAsksForNameAndPlaceAndTellsThem)
{
    LibraryFile::Create(rig.PathOf("data/Other.cvm").toStdString(), LibraryKind::Materials);
    rig.Stop();
    rig.asksWhenAdding = true;
    rig.Start();
    rig.Window().resize(1000, 1200);
    QCoreApplication::processEvents();
    const auto add = [this](const std::function<void(QDialog&)>& answer) {
        const CorvexTest::DialogAnswer given(answer);
        rig.Press("cmdMaterialLibraryAdd");
        QCoreApplication::processEvents();
        EXPECT_TRUE(given.Given());
        return rig.Find<QLabel>("miscField").text();
    };
    const auto field = [](QDialog& dialog, const char* name) {
        return dialog.findChild<QLineEdit*>(name);
    };
    EXPECT_EQ(add([&](QDialog& dialog) {
                  EXPECT_TRUE(field(dialog, "txtEntryName")->hasSelectedText());
                  QTest::keyClicks(field(dialog, "txtEntryName"), "Jade");
                  field(dialog, "txtIntoCollections")->setText("House, garden");
                  dialog.accept();
              }),
              "Added Jade to Gems.cvm, garden, House.");
    EXPECT_EQ(Names(), std::vector<std::string>{"Jade"});
    EXPECT_EQ(add([&](QDialog& dialog) {
                  QTest::keyClicks(field(dialog, "txtEntryName"), "Onyx");
                  auto* library = dialog.findChild<QComboBox*>("cboIntoLibrary");
                  library->setCurrentIndex(library->findText("Other.cvm"));
                  dialog.accept();
              }),
              "Added Onyx to Other.cvm.");
    EXPECT_EQ(Names().size(), 1U);
    add([](QDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(Names().size(), 1U);
    rig.Find<QLineEdit>("searchMaterials").setText("collection=\"house\"");
    add([&](QDialog& dialog) {
        EXPECT_EQ(field(dialog, "txtIntoCollections")->text(), "House") << "where one looks";
        dialog.accept();
    });
    EXPECT_EQ(Names().size(), 2U);
    Steps().undo();
    Steps().undo();
    EXPECT_EQ(LibraryFile::Open(rig.PathOf("data/Other.cvm").toStdString(), LibraryKind::Materials)
                  .Count(),
              0);
}

TEST_F(Library, PropertiesAreAStepAndFavouritesAreNot)
{
    AddMaterial("11");
    AddMaterial("22");
    View().setFocus();
    View().selectAll();
    auto& browser = *rig.Host().Browsers().Of(LibraryKind::Materials).front();
    const auto ids = browser.SelectedIds();
    const int steps = Steps().count();
    QTest::keyClick(&View(), Qt::Key_D, Qt::ControlModifier);
    auto& search = rig.Find<QLineEdit>("searchMaterials");
    search.setText("fav:yes");
    EXPECT_EQ(Names().size(), 2U);
    EXPECT_EQ(Steps().count(), steps);
    View().selectAll();
    Q_EMIT browser.MenuWanted({0, 0});
    rig.Find<QAction>("entryPropertiesAction").trigger();
    auto& dialog = rig.Find<QDialog>("entryProperties");
    dialog.findChild<QLineEdit*>("txtTags")->setText("stone");
    dialog.accept();
    EXPECT_EQ(Steps().count(), steps + 1);
    search.setText("tag:stone");
    EXPECT_EQ(Names().size(), 2U);
    Steps().undo();
    EXPECT_TRUE(Names().empty());
    Steps().redo();
    EXPECT_EQ(Names().size(), 2U);
    QTest::keyClick(&View(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&View(), Qt::Key_Delete);
    EXPECT_EQ(Materials().Count(), 0);
    Steps().undo();
    EXPECT_EQ(Materials().Count(), 2) << "several are deleted as one step";
    EXPECT_EQ(Materials().IdAt(0), ids[0]);
}

TEST_F(Library, ImagesDroppedOnTheTexturesAreAddedAndOthersNamed)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(rig.files.Save("oak.png", Qt::red)),
                  QUrl::fromLocalFile(rig.files.Write("notes.txt", "text")),
                  QUrl::fromLocalFile(rig.files.Save("elm.png", Qt::green))});
    auto& view = rig.Find<LibraryView>("textureEntries");
    ASSERT_TRUE(CorvexTest::Drop(*view.viewport(), data, {10, 10}));
    EXPECT_EQ(view.model()->rowCount(), 2);
    ASSERT_EQ(rig.prompts.shown.size(), 1U);
    EXPECT_THAT(rig.prompts.shown.front().text, testing::HasSubstr("notes.txt"));
    Steps().undo();
    EXPECT_EQ(view.model()->rowCount(), 0) << "one step";
}

TEST_F(Library, OfTheSceneFollowsItAndOnlyReads)
{
    AddMaterial("77");
    auto& list = rig.Find<QComboBox>("cboMaterialLibrary");
    CorvexTest::Click(list);
    list.hidePopup();
    CorvexTest::Choose(list, "Materials in This Scene");
    EXPECT_EQ(list.currentText(), "Materials in This Scene");
    const auto& shapes = rig.Window().Scene().All();
    ASSERT_EQ(Names().size(), studio::MaterialUsesOf(shapes).size());
    EXPECT_FALSE(rig.Find<QWidget>("cmdMaterialLibraryDelete").isEnabled());
    const std::string first = rig.Shape(0)->Applied().identity->name;
    EXPECT_EQ(Names().front(), first);

    rig.Select({1});
    ClickEntry(0);
    EXPECT_EQ(rig.Shape(1)->Applied().identity->name, first);
    rig.Select({0});
    rig.Type("txtAmbient", "3");
    auto& search = rig.Find<QLineEdit>("searchMaterials");
    search.setText("ambient=3");
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Names().empty(); }, 5000)) << "an edit is seen";
    search.clear();

    const auto data = studio::DraggedEntry(*rig.Host().Browsers().Open(LibraryKind::Materials), 0);
    EXPECT_FALSE(CorvexTest::Drop(*View().viewport(), *data, {10, 10}));
    View().selectAll();
    auto& browser = *rig.Host().Browsers().Of(LibraryKind::Materials).front();
    const std::size_t count = Names().size();
    Q_EMIT browser.CopyDropped(browser.SelectedIds());
    rig.Stop();
    rig.Start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Names().size() == count; }, 10000))
        << "shown again at the next start";
    rig.Window().Panel().LoadMaterialLibrary("Gems.cvm");
    EXPECT_EQ(Names().size(), count + 1);
}

TEST_F(Library, MaterialDroppedOnItIsAddedUnderItsName)
{
    AddMaterial("11");
    studio::NamedMaterial jade{"Jade", {}};
    jade.material.Textures.bump = "/t/grain.png";
    const auto data = studio::DraggedMaterialData(jade);
    ASSERT_TRUE(CorvexTest::Drop(*View().viewport(), *data, {10, 10}));
    QCoreApplication::processEvents();
    ASSERT_EQ(Names().size(), 2U);
    EXPECT_EQ(Names()[1], "Jade");
    EXPECT_EQ(studio::ReadMaterial(Materials(), 1).material, jade.material);
    EXPECT_EQ(rig.Find<QLabel>("miscField").text(), "Added Jade to Gems.cvm.");
    Steps().undo();
    EXPECT_EQ(Names().size(), 1U);
}

TEST_F(Library, TrashGivesBackUntilItIsEmptied)
{
    auto& textures = rig.Host().Textures();
    textures.AddTextureToLibrary(rig.files.Save("oak.png", Qt::red).toStdString());
    textures.DeleteTextureFromLibrary(0);
    AddMaterial("11");
    ClickEntry(0);
    rig.Press("cmdMaterialLibraryDelete");
    auto& menu = rig.Find<QMenu>("libraryMenu");
    QMenu* trash = nullptr;
    for (QMenu* inner : menu.findChildren<QMenu*>()) {
        if (inner->title().contains("Material")) {
            trash = inner;
        }
    }
    ASSERT_NE(trash, nullptr);
    Q_EMIT trash->aboutToShow();
    ASSERT_EQ(trash->actions().size(), 1);
    trash->actions().front()->trigger();
    EXPECT_EQ(Names().size(), 1U);

    Steps().undo();
    EXPECT_TRUE(Names().empty());
    rig.prompts.answers = {false, true};
    rig.Find<QAction>("emptyTrash").trigger();
    EXPECT_EQ(Materials().Trash().size(), 1U) << "No was the answer";
    rig.Find<QAction>("emptyTrash").trigger();
    EXPECT_TRUE(Materials().Trash().empty());
    EXPECT_TRUE(rig.Host().Browsers().Open(LibraryKind::Textures)->Trash().empty());
    Steps().redo();
    EXPECT_TRUE(Names().empty());
    EXPECT_EQ(rig.prompts.shown.size(), 1U) << "what is gone for good is told";
}

TEST_F(Library, WhatIsDraggedIsSeenOnTheShapeUnderItAndLeavesNoTrace)
{
    AddMaterial("42");
    const auto material = studio::DraggedEntry(Materials(), 0);
    const CorvexTest::SampleFolder folder;
    QMimeData image;
    image.setUrls({QUrl::fromLocalFile(folder.Write("oak.png", {}))});
    rig.Select({0});
    QWidget& viewport = rig.Window().Viewport();
    const auto drawn = [this] {
        studio::Frame frame;
        const_cast<studio::StudioScene&>(rig.Window().Scene()).Fill(frame);
        return frame.items;
    };
    const auto isSame = [](const studio::FrameItem& one, const studio::FrameItem& other) {
        return one.material == other.material && one.coordinates == other.coordinates &&
               one.target == other.target;
    };
    const auto before = drawn();
    const int steps = History().count();
    for (const QMimeData* data :
         {const_cast<const QMimeData*>(material.get()), const_cast<const QMimeData*>(&image)}) {
        QDragEnterEvent enter({1, 1}, Qt::CopyAction, data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&viewport, &enter);
        for (const QPoint at : {QPoint(1, 1), viewport.rect().center(), QPoint(1, 1)}) {
            QDragMoveEvent move(at, Qt::CopyAction, data, Qt::LeftButton, {});
            QCoreApplication::sendEvent(&viewport, &move);
            const bool isOver = at != QPoint(1, 1);
            const auto now = drawn();
            const auto target = std::ranges::find_if(now, &studio::FrameItem::target);
            EXPECT_EQ(target != now.end(), isOver);
            EXPECT_EQ(std::ranges::equal(now, before, isSame), !isOver);
            EXPECT_TRUE(!isOver || target->material->Ambient == 42 ||
                        target->material->Textures.primary.ends_with("oak.png"));
        }
        QDragMoveEvent move(viewport.rect().center(), Qt::CopyAction, data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&viewport, &move);
        QDragLeaveEvent leave;
        QCoreApplication::sendEvent(&viewport, &leave);
        EXPECT_TRUE(std::ranges::equal(drawn(), before, isSame));
    }
    EXPECT_EQ(History().count(), steps);
}

TEST_F(Library, DroppedMaterialAndImageGoToTheShapeUnderThePointer)
{
    AddMaterial("42");
    const auto data = studio::DraggedEntry(Materials(), 0);
    data->setData("application/x-corvex-material-name", {});  // another program may give none
    rig.Select({0});
    for (const auto& shape : rig.Window().Scene().All()) {
        auto relative = std::make_shared<CorvexSG::GatheredMaterial>(*shape->Applied().gathered);
        relative->applyMode = CorvexDB::ApplyMode::Relative;
        shape->SetApplied({relative, shape->Applied().coordinates});
    }
    const int steps = History().count();
    ASSERT_TRUE(DropInTheMiddle(*data));
    EXPECT_EQ(History().count(), steps + 1);
    const auto& shapes = rig.Window().Scene().All();
    const auto hit = std::ranges::find_if(
        shapes, [](const auto& shape) { return shape->Material().Ambient == 42; });
    ASSERT_NE(hit, shapes.end());
    EXPECT_EQ((*hit)->Applied().gathered->applyMode, CorvexDB::ApplyMode::Relative);

    const auto named = studio::DraggedEntry(Materials(), 0);
    named->setData("application/x-corvex-material-name", "Gold");
    for (int again = 0; again < 2; ++again) {
        ASSERT_TRUE(DropInTheMiddle(*named));
        EXPECT_EQ((*hit)->Applied().identity->name, "Gold");
        EXPECT_EQ(History().count(), steps + 2) << "what it has already is no step";
    }
    History().undo();

    const CorvexTest::SampleFolder folder;
    const QString oak = folder.Write("oak.png", {});
    folder.Write("folder.png/inside.png", {});
    QMimeData image;
    for (const char* none : {"folder.png", "gone.png"}) {
        image.setUrls({QUrl::fromLocalFile(folder.PathOf(none))});
        EXPECT_FALSE(DropInTheMiddle(image)) << none;
    }
    image.setUrls({QUrl::fromLocalFile(oak)});
    ASSERT_TRUE(DropInTheMiddle(image));
    EXPECT_EQ((*hit)->Material().Textures.primary, oak.toStdString());
    EXPECT_EQ((*hit)->Material().Ambient, 42);
    History().undo();
    History().undo();
    EXPECT_NE((*hit)->Material().Ambient, 42);
}

}  // namespace
