#include "EditJournal.h"

#include "DefaultScene.h"
#include "DocumentBackup.h"
#include "FullDisk.h"
#include "LeftJournal.h"
#include "SampleFolder.h"
#include "SampleMaterial.h"
#include "SceneDocument.h"
#include "Testing.h"
#include <CorvexMaterial/Status.h>

#include <QDir>

#include <sys/stat.h>

namespace {

using studio::EditJournal;
using studio::JournalBase;
using studio::SceneContent;
using studio::StudioScene;
using studio::TexturePlace;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

studio::AppliedMaterial Shared(const std::string& name, std::int32_t specular)
{
    CorvexDB::udtMaterial material = CorvexTest::KeptMaterial();
    material.Specular = specular;
    studio::AppliedMaterial applied = studio::WholeMaterial(material);
    applied.identity = std::make_shared<studio::SceneMaterial>(
        studio::SceneMaterial{name,
                              {},
                              std::make_shared<studio::LibraryLink>(
                                  studio::LibraryLink{"/Wood.cvm", 1, name, "0123", {}})});
    return applied;
}

class EditJournalTest : public testing::Test {
protected:
    EditJournalTest()
    {
        Begin();
        base = ContentOf(scene);
    }

    static SceneContent ContentOf(const StudioScene::Shapes& shapes)
    {
        SceneContent content;
        for (const auto& shape : shapes) {
            content.shapes.push_back(shape->State());
        }
        return content;
    }
    void Begin(const JournalBase& from = {})
    {
        journal->Begin(from, "Default Scene", scene, {});
    }
    void Edit(std::size_t place, const studio::AppliedMaterial& applied, const char* what = "Edit")
    {
        scene[place]->SetApplied(applied);
        journal->Record(scene, {textures, views}, camera, what);
    }
    void Crash()
    {
        journal->Leave();
        journal.reset();
    }
    [[nodiscard]] studio::LeftJournals Left() const
    {
        return studio::FindLeftJournals(folder.Path().toStdString());
    }
    [[nodiscard]] QStringList Files(const char* pattern = "*") const
    {
        return QDir(folder.PathOf("recovery"))
            .entryList({pattern}, QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    }
    [[nodiscard]] QString FileOf() const { return "recovery/" + Files("*.edits").value(0); }

    CorvexTest::SampleFolder folder;
    StudioScene::Shapes scene = studio::DefaultShapes();
    SceneContent base;
    TexturePlace textures = TexturePlace::Referenced;
    std::vector<studio::NamedView> views;
    studio::Camera camera{{1.0F, 2.0F, 3.0F}, 10.0F, -20.0F, 7.0F, 40.0F};
    std::mutex mutex;
    std::vector<std::string> troubles;
    std::unique_ptr<EditJournal> journal = std::make_unique<EditJournal>(
        folder.Path().toStdString(), [this](const std::string& message) {
            const std::lock_guard lock(mutex);
            troubles.push_back(message);
        });
};

void ExpectSameEdits(const SceneContent& read, const SceneContent& written)
{
    ASSERT_EQ(read.shapes.size(), written.shapes.size());
    for (std::size_t i = 0; i < read.shapes.size(); ++i) {
        const auto& one = read.shapes[i];
        const auto& other = written.shapes[i];
        EXPECT_EQ(one.placement, other.placement);
        EXPECT_EQ(one.moved, other.moved);
        EXPECT_EQ(one.option, other.option);
        EXPECT_EQ(one.flags, other.flags);
        EXPECT_EQ(one.applied.coordinates, other.applied.coordinates);
        EXPECT_EQ(one.applied.gathered->material, other.applied.gathered->material);
        EXPECT_EQ(one.applied.gathered->applyMode, other.applied.gathered->applyMode);
        ASSERT_EQ(one.applied.identity == nullptr, other.applied.identity == nullptr);
        if (one.applied.identity != nullptr) {
            EXPECT_EQ(one.applied.identity->name, other.applied.identity->name);
            EXPECT_EQ(one.applied.identity->link == nullptr,
                      other.applied.identity->link == nullptr);
        }
    }
}

TEST_F(EditJournalTest, GivesBackWhatWasEditedAndWhatIsShared)
{
    // Two share a new material, one takes that of a shape that nobody edits.
    const auto oak = Shared("Oak", 5);
    base.shapes[3].applied = Shared("Base", 6);
    scene[3]->SetApplied(base.shapes[3].applied);
    Begin();
    views = {{"Lid", camera}};
    scene[0]->Move(1.0F, 0);
    scene[0]->SetFlags({.hidden = true, .locked = true});
    Edit(0, oak, "Oak");
    journal->Flush();
    scene[0]->Move(-1.0F, 0);
    scene[0]->SetFlags({.hidden = false, .locked = true});
    Edit(1, oak, "Oak again");
    scene[2]->Move(0.25F, 1);
    scene[2]->SetShapeOption(static_cast<std::int32_t>(studio::ShapeOption::Flat));
    Edit(2, scene[3]->Applied(), "As the neighbour");
    journal->Show(QImage(640, 480, QImage::Format_RGB32));
    journal->Flush();
    EXPECT_THAT(Left().found, IsEmpty()) << "of a program that lives";
    Crash();
    auto left = Left();
    ASSERT_THAT(left.found, SizeIs(1));
    EXPECT_EQ(left.found[0].Edits().count, 3);
    EXPECT_EQ(left.found[0].Edits().what, "As the neighbour");
    EXPECT_EQ(left.found[0].Head().name, "Default Scene");
    EXPECT_FALSE(left.found[0].BaseIsChanged());
    std::vector<std::string> problems;
    const SceneContent content = left.found[0].Restored(base, problems);
    ExpectSameEdits(content, ContentOf(scene));
    EXPECT_EQ(content.shapes[0].applied.identity, content.shapes[1].applied.identity);
    EXPECT_EQ(content.shapes[2].applied.identity, base.shapes[3].applied.identity);
    EXPECT_EQ(content.camera, camera);
    EXPECT_EQ(content.views, views);
    EXPECT_THAT(problems, IsEmpty());
    left.found[0].Discard();
    left = {};
    EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(EditJournalTest, LeavesNothingWhereNothingIsLost)
{
    EXPECT_FALSE(QFile::exists(folder.PathOf("recovery")));
    const auto before = scene[0]->Applied();
    Edit(0, Shared("Oak", 5));
    journal->Flush();
    EXPECT_THAT(Files("*.edits"), SizeIs(1));
    Edit(0, before, "Undo");
    journal->Flush();
    EXPECT_THAT(Files(), IsEmpty()) << "taken back";
    textures = TexturePlace::Embedded;
    Edit(0, before, "Keep Textures in Document");
    journal->Flush();
    EXPECT_THAT(Files("*.edits"), SizeIs(1));
    textures = TexturePlace::Referenced;
    views = {{"Lid", camera}};
    Edit(0, before, "Save view Lid");
    journal->Flush();
    EXPECT_THAT(Files("*.edits"), SizeIs(1));
    views.clear();
    Edit(0, before, "Undo");
    journal->Flush();
    EXPECT_THAT(Files(), IsEmpty()) << "taken back";
    Edit(0, Shared("Oak", 5));
    journal->Flush();
    Begin();
    journal->Flush();
    EXPECT_THAT(Files(), IsEmpty()) << "saved";
    Edit(0, Shared("Ash", 6));
    journal->Flush();
    journal.reset();
    EXPECT_THAT(Files(), IsEmpty()) << "closed";
}

TEST_F(EditJournalTest, IsNotOfferedWhereASaveHasAllOfIt)
{
    const std::string file = folder.PathOf("scene.corvex").toStdString();
    for (const auto& [mark, isEditedAgain, offered] :
         {std::tuple{7, false, 0U}, {8, false, 1U}, {7, true, 1U}}) {
        journal = std::make_unique<EditJournal>(folder.Path().toStdString(), [](auto&) {});
        Begin();
        Edit(0, Shared("Oak", 5));
        journal->Flush({file, 7});
        if (isEditedAgain) {
            Edit(1, Shared("Ash", 6));
        }
        base.mark = mark;
        std::ignore = studio::SceneDocument::Create(file, base, folder.Path().toStdString());
        Crash();
        auto left = Left();
        EXPECT_THAT(left.found, SizeIs(offered));
        for (auto& journals : left.found) {
            journals.Discard();
        }
        EXPECT_THAT(Files("*.edits"), IsEmpty());
    }
}

TEST_F(EditJournalTest, IgnoresATailThatWasCutOffAndRefusesDamage)
{
    Edit(0, Shared("Oak", 5));
    journal->Flush();
    const qsizetype first = CorvexTest::ContentOf(folder.PathOf(FileOf())).size();
    Edit(0, Shared("Ash", 6), "Another");
    journal->Flush();
    Crash();
    const QString file = FileOf();
    const QByteArray whole = CorvexTest::ContentOf(folder.PathOf(file));
    const qsizetype head = whole.indexOf('\n') + 1;
    for (qsizetype length = 0; length <= whole.size(); ++length) {
        const std::string torn = whole.first(length).toStdString();
        if (length < head) {
            ASSERT_THROW(static_cast<void>(studio::ReadJournal(torn)), CorvexMaterial::Error);
        } else {
            const int edits = length == whole.size() ? 2 : length >= first ? 1 : 0;
            ASSERT_EQ(studio::ReadJournal(torn).edits.count, edits) << length;
        }
    }
    folder.Write(file, whole.chopped(1));
    EXPECT_THAT(Left().found, SizeIs(1));
    QByteArray damaged = whole;
    damaged[first - 20] = '#';
    folder.Write(file, damaged);
    EXPECT_THAT(Left().refused, ElementsAre(HasSubstr("damaged")));
    EXPECT_EQ(CorvexTest::ContentOf(folder.PathOf(file)), damaged);
}

TEST_F(EditJournalTest, RefusesWhatIsPlantedAndLeavesItAlone)
{
    Edit(0, Shared("Oak", 5));
    journal->Flush();
    Crash();
    const QByteArray good = CorvexTest::ContentOf(folder.PathOf(FileOf()));
    QFile::remove(folder.PathOf(FileOf()));
    const QString elsewhere = folder.Write("elsewhere", good);
    const QString recovery = folder.PathOf("recovery/");
    QFile::link(elsewhere, recovery + "link.edits");
    QDir().mkpath(recovery + "folder.edits");
    EXPECT_EQ(::mkfifo((recovery + "pipe.edits").toLocal8Bit().constData(), 0600), 0);
    folder.Write("recovery/text.edits", "hello\n");
    EXPECT_THAT(Left().refused, SizeIs(4));
    EXPECT_THAT(Left().found, IsEmpty());
    EXPECT_THAT(Files(), SizeIs(4));
    EXPECT_EQ(CorvexTest::ContentOf(elsewhere), good);
}

TEST_F(EditJournalTest, FindsShapesOfABaseThatHasChanged)
{
    const QString file = folder.Write("model.obj", "v 0 0 0\n");
    Begin(studio::BaseAt(JournalBase::Kind::Model, file.toStdString()));
    const auto oak = Shared("Oak", 5);
    Edit(0, oak);
    Edit(2, oak);
    Crash();
    folder.Write("model.obj", "v 0 0 0\nv 1 1 1\n");
    const auto left = Left();
    ASSERT_THAT(left.found, SizeIs(1));
    EXPECT_TRUE(left.found[0].BaseIsChanged());
    std::swap(base.shapes[0], base.shapes[1]);
    base.shapes[2].name = "renamed";
    std::vector<std::string> problems;
    const SceneContent content = left.found[0].Restored(base, problems);
    EXPECT_EQ(content.shapes[1].applied.gathered->material, oak.gathered->material);
    EXPECT_EQ(content.shapes[0].applied, base.shapes[0].applied);
    EXPECT_EQ(content.shapes[2].applied, base.shapes[2].applied);
    EXPECT_THAT(problems, ElementsAre(HasSubstr(scene[2]->Name())));
    QFile::remove(file);
    EXPECT_TRUE(left.found[0].BaseIsMissing());
}

TEST_F(EditJournalTest, GoesByNamesOnceTheSceneHasOtherMeshes)
{
    const auto oak = Shared("Oak", 5);
    Edit(1, oak);
    scene = studio::DefaultShapes();
    std::swap(scene[0], scene[3]);
    scene[1]->SetApplied(oak);
    Edit(0, Shared("Ash", 6));
    Crash();
    std::vector<std::string> problems;
    const SceneContent content = Left().found.at(0).Restored(base, problems);
    EXPECT_EQ(content.shapes[3].applied.gathered->material.Specular, 6);
    EXPECT_EQ(content.shapes[1].applied.gathered->material.Specular, 5);
    EXPECT_EQ(content.shapes[0].applied.gathered->material,
              base.shapes[0].applied.gathered->material);
}

TEST_F(EditJournalTest, TellsOfADiskThatIsFullOnceAndGoesOn)
{
    folder.Write("recovery", "in the way");
    for (int specular = 0; specular < 3; ++specular) {
        Edit(0, Shared("Oak", specular));
        journal->Flush();
    }
    {
        const std::lock_guard lock(mutex);
        EXPECT_THAT(troubles, ElementsAre(HasSubstr("recovery")));
    }
    QFile::remove(folder.PathOf("recovery"));
    Edit(1, Shared("Ash", 1));
    EXPECT_TRUE(journal->Flush());
    const QString file = folder.PathOf(FileOf());
    const QByteArray before = CorvexTest::ContentOf(file);
    {
        const CorvexTest::FullDisk full(100);
        Edit(1, Shared("Ash", 2));
        EXPECT_FALSE(journal->Flush());
        EXPECT_EQ(CorvexTest::ContentOf(file), before);
    }
    {
        const CorvexTest::FullDisk nearlyFull(static_cast<rlim_t>(before.size() + 50));
        Edit(1, Shared("Ash", 3));
        EXPECT_TRUE(journal->Flush()) << "in place of what is out of date";
    }
    QDir(folder.PathOf("recovery")).removeRecursively();
    Edit(1, Shared("Ash", 4));
    EXPECT_TRUE(journal->Flush()) << "it was cleared away";
    Crash();
    const auto left = Left();
    ASSERT_THAT(left.found, SizeIs(1));
    std::vector<std::string> problems;
    ExpectSameEdits(left.found[0].Restored(base, problems), ContentOf(scene));
}

TEST(DocumentBackup, KeepsTheLatestOfEachDocument)
{
    const CorvexTest::SampleFolder folder;
    const std::string state = folder.PathOf("state").toStdString();
    const auto backUp = [&](const char* file, int kept) {
        studio::BackUpDocument(folder.PathOf(file).toStdString(), state, kept);
    };
    const auto files = [&] {
        return QDir(folder.PathOf("state/backups")).entryList(QDir::Files, QDir::Name);
    };
    folder.Write("a/scene.corvex", "one");
    folder.Write("b/scene.corvex", "other");
    backUp("a/scene.corvex", 0);
    backUp("a/missing.corvex", 5);
    EXPECT_THAT(files(), IsEmpty());
    backUp("a/scene.corvex", 2);
    ASSERT_THAT(files(), SizeIs(1));
    const QString mark = files().front().left(QStringLiteral("scene-1234-").size());
    backUp("b/scene.corvex", 2);
    EXPECT_THAT(files(), SizeIs(2));
    for (const char* time : {"20200101-000000", "20210101-000000"}) {
        folder.Write("state/backups/" + mark + time + ".corvex", time);
    }
    folder.Write("state/backups/" + mark + "20200101-000000.corvex.copying", "half");
    backUp("a/scene.corvex", 2);
    EXPECT_THAT(files(), SizeIs(3)) << "two of it, and that of the other";
}

}  // namespace
