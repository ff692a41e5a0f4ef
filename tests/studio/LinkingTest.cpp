#include "LibraryBrowsers.h"
#include "LibraryLinks.h"
#include "LibraryReading.h"
#include "StudioRig.h"

#include <QFile>
#include <QLabel>

namespace {

using studio::LibraryFile;
using studio::LibraryKind;
using studio::LibraryLinks;
using studio::LinkState;
using studio::ShapeList;
using testing::HasSubstr;
using testing::SizeIs;

class Linking : public StudioTest::StartedStudio {
protected:
    /// Two shapes share a link to the only entry of the library.
    void SetUp() override
    {
        rig.Window().resize(1000, 1200);  // all of the panel is in sight
        rig.Window().Panel().put_bMaterialLibraryPanel(true);
        QCoreApplication::processEvents();
        rig.Type("txtAmbient", "11");
        rig.Press("cmdMaterialLibraryAdd");
        QCoreApplication::processEvents();
        rig.Select({0, 1});
        Browser().Reveal(0);
        Links().ApplyLinked(Browser());
    }

    LibraryLinks& Links() { return rig.Window().Links(); }
    studio::LibraryBrowser& Browser()
    {
        return *rig.Host().Browsers().Of(LibraryKind::Materials).front();
    }
    LibraryFile OtherProgram() { return LibraryFile::Open(Path(), LibraryKind::Materials); }
    std::string Path() { return LibraryLinks::LinkOf(*rig.Shape(0))->library; }
    LinkState State() { return Links().StateOf(*LibraryLinks::LinkOf(*rig.Shape(0))); }
    void ChangeInLibrary(std::int32_t ambient)
    {
        LibraryFile file = OtherProgram();
        studio::NamedMaterial material{file.NameAt(0), ReadMaterial(file, 0).material};
        material.material.Ambient = ambient;
        file.Replace(file.IdAt(0), studio::EntryOfMaterial(material, "/"));
        Links().LookAgain();
    }
    std::pair<std::int32_t, std::int32_t> Amounts(std::size_t shape)
    {
        const CorvexDB::udtMaterial& material = rig.Shape(shape)->Material();
        return {material.Ambient, material.Specular};
    }
};

TEST_F(Linking, UpdateTakesWhatTheLibraryHasAndKeepsWhatWasChangedHere)
{
    ASSERT_EQ(Amounts(0).first, 11);
    EXPECT_FALSE(LibraryLinks::HasChanges(*rig.Shape(0)));
    EXPECT_EQ(rig.Shape(0)->Applied(), rig.Shape(1)->Applied());
    rig.Type("txtSpecular", "77");
    EXPECT_EQ(State(), LinkState::Current);
    ChangeInLibrary(22);
    EXPECT_EQ(State(), LinkState::Newer);
    QCoreApplication::processEvents();
    EXPECT_THAT(rig.Find<QLabel>("lblLink").text().toStdString(), HasSubstr("has a newer one"));

    Links().Update({rig.Shape(0)});
    EXPECT_EQ(Amounts(0), std::pair(22, 77));
    EXPECT_EQ(Amounts(1), std::pair(22, 77)) << "it is one material";
    EXPECT_EQ(State(), LinkState::Current);
    EXPECT_EQ(rig.TextOf("txtAmbient"), "22");
    Links().Revert({rig.Shape(1)});
    EXPECT_EQ(Amounts(0).first, 22);
    EXPECT_FALSE(LibraryLinks::HasChanges(*rig.Shape(0)));
    History().undo();
    History().undo();
    EXPECT_EQ(Amounts(0), std::pair(11, 77));
    EXPECT_EQ(State(), LinkState::Newer);

    Links().Unlink({rig.Shape(0)});
    EXPECT_EQ(LibraryLinks::LinkOf(*rig.Shape(1)), nullptr);
    EXPECT_EQ(Amounts(1), std::pair(11, 77));
}

TEST_F(Linking, PushBackIsAStepOfTheLibraryAndAsksBeforeOthersLoseTheirs)
{
    rig.Type("txtSpecular", "77");
    Links().PushBack({rig.Shape(0)});
    EXPECT_EQ(State(), LinkState::Current);
    EXPECT_FALSE(LibraryLinks::HasChanges(*rig.Shape(1)));
    const auto inLibrary = [this] {
        LibraryFile file = OtherProgram();
        return ReadMaterial(file, 0).material;
    };
    EXPECT_EQ(inLibrary().Specular, 77);
    rig.Window().LibraryHistory().undo();
    EXPECT_NE(inLibrary().Specular, 77);
    EXPECT_EQ(State(), LinkState::Newer) << "another one, at least";
    rig.Window().LibraryHistory().redo();
    EXPECT_EQ(State(), LinkState::Current);

    ChangeInLibrary(33);
    rig.Type("txtSpecular", "5");
    Links().PushBack({rig.Shape(0)});
    EXPECT_EQ(inLibrary().Ambient, 33) << "the answer was No";
    rig.prompts.answers = {true};
    Links().PushBack({rig.Shape(0)});
    EXPECT_EQ(inLibrary().Specular, 5);
}

TEST_F(Linking, OfALibraryThatIsGoneIsToldAndNothingIsLost)
{
    rig.Type("txtSpecular", "77");
    ASSERT_TRUE(QFile::remove(QString::fromStdString(Path())));
    Links().LookAgain();
    EXPECT_EQ(State(), LinkState::Missing);
    Links().Update({rig.Shape(0)});
    Links().PushBack({rig.Shape(0)});
    EXPECT_THAT(rig.prompts.shown, SizeIs(2));
    EXPECT_EQ(Amounts(0), std::pair(11, 77));
    Links().Revert({rig.Shape(0)});
    EXPECT_FALSE(LibraryLinks::HasChanges(*rig.Shape(0)));
}

}  // namespace
