#include "SceneDocument.h"

#include "Database.h"
#include "MaterialNames.h"
#include "ParametricMesh.h"
#include "SampleFolder.h"
#include "SampleMaterial.h"
#include "Testing.h"
#include <CorvexMaterial/Status.h>

#include <QDir>

#include <sqlite3.h>
#include <sys/stat.h>

namespace {

using studio::SceneContent;
using studio::SceneDocument;
using studio::ShapeState;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

studio::AppliedMaterial Named(const std::string& name, const CorvexDB::udtMaterial& material)
{
    studio::AppliedMaterial applied =
        studio::WholeMaterial(material, CorvexSG::CoordinateMode::FromWrap);
    applied.identity = std::make_shared<studio::SceneMaterial>(studio::SceneMaterial{name, {}});
    return applied;
}

class SceneDocumentTest : public testing::Test {
protected:
    SceneDocumentTest()
    {
        ShapeState ball;
        ball.name = "Ball \u00e4";
        ball.mesh = studio::SphereMesh(1.0F);
        ball.applied = Named("Oak", CorvexTest::KeptMaterial());
        studio::LibraryLink link{PathOf("Wood.cvm"), 7, "Oak", "0123", CorvexTest::KeptMaterial()};
        link.taken.Specular = 3;
        link.taken.Textures.bump = PathOf("bump.png");
        ball.applied.identity = std::make_shared<studio::SceneMaterial>(studio::SceneMaterial{
            "Oak", R"({"later":1})", std::make_shared<studio::LibraryLink>(link)});
        ball.placement.translate(1.0F, 2.0F, 3.0F);
        ball.placement.rotate(30.0F, 0.0F, 1.0F, 0.0F);
        ball.moved = {0.1, 0.0, -2.0};
        ShapeState facets = ball;
        facets.name = "Facets";
        facets.option = studio::ShapeOption::Flat;
        facets.flags.hidden = true;
        facets.applied.coordinates = CorvexSG::CoordinateMode::FromMesh;
        ShapeState empty;
        empty.applied = Named("Plain", {});
        empty.flags.locked = true;
        content.shapes = {ball, facets, empty};
        content.selection = {2, 0};
        content.camera = studio::Camera{{1.0F, 2.0F, 3.0F}, 10.0F, -20.0F, 7.0F, 40.0F};
        content.views = {{"Außen & <innen>", *content.camera}, {"Top", {}}};
        content.views[1].camera.lens = studio::Lens::Parallel;
        content.source = {{(folder.Path() + "/model.obj").toStdString(), 12, 34}, {}};
        content.source.others = {{(folder.Path() + "/model.mtl").toStdString(), 5, 6}};
        content.picture = "PNG";
    }

    [[nodiscard]] std::string PathOf(const char* name = "scene.corvex") const
    {
        return folder.PathOf(QString::fromUtf8(name)).toStdString();
    }
    [[nodiscard]] SceneDocument Create() const
    {
        return SceneDocument::Create(PathOf(), content, PathOf("cache"));
    }
    [[nodiscard]] SceneDocument::Opened Open(const char* name = "scene.corvex") const
    {
        return SceneDocument::Open(PathOf(name), PathOf("cache"));
    }
    [[nodiscard]] std::string Refusal() const
    {
        try {
            static_cast<void>(Open());
            return {};
        } catch (const CorvexMaterial::Error& error) {
            return error.what();
        }
    }
    void Sql(const std::string& statements) const
    {
        sqlite3* handle = nullptr;
        sqlite3_open(PathOf().c_str(), &handle);
        EXPECT_EQ(sqlite3_exec(handle, statements.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(handle);
        sqlite3_close(handle);
    }
    [[nodiscard]] std::int64_t Number(const char* query) const
    {
        return studio::Database(PathOf(), studio::Database::Mode::Existing).Integer(query);
    }
    [[nodiscard]] QByteArray Bytes() const
    {
        return CorvexTest::ContentOf(folder.PathOf("scene.corvex"));
    }

    CorvexTest::SampleFolder folder;
    SceneContent content;
};

void ExpectSame(const SceneContent& read, const SceneContent& written)
{
    ASSERT_EQ(read.shapes.size(), written.shapes.size());
    for (std::size_t i = 0; i < read.shapes.size(); ++i) {
        const ShapeState& one = read.shapes[i];
        const ShapeState& other = written.shapes[i];
        EXPECT_EQ(one.name, other.name);
        EXPECT_EQ(one.option, other.option);
        EXPECT_EQ(one.flags, other.flags);
        EXPECT_EQ(one.placement, other.placement);
        EXPECT_EQ(one.moved, other.moved);
        EXPECT_EQ(one.applied.coordinates, other.applied.coordinates);
        EXPECT_EQ(one.applied.gathered->material, other.applied.gathered->material);
        EXPECT_EQ(one.applied.gathered->applyMode, other.applied.gathered->applyMode);
        EXPECT_EQ(one.applied.identity->name, other.applied.identity->name);
        EXPECT_EQ(one.applied.identity->unknown, other.applied.identity->unknown);
        ASSERT_EQ(one.applied.identity->link == nullptr, other.applied.identity->link == nullptr);
        if (one.applied.identity->link != nullptr) {
            EXPECT_TRUE(*one.applied.identity->link == *other.applied.identity->link);
        }
        ASSERT_EQ(one.mesh == nullptr, other.mesh == nullptr);
        if (one.mesh != nullptr) {
            EXPECT_EQ(one.mesh->indices, other.mesh->indices);
            ASSERT_EQ(one.mesh->vertices.size(), other.mesh->vertices.size());
            EXPECT_EQ(one.mesh->vertices.back().position, other.mesh->vertices.back().position);
            EXPECT_EQ(one.mesh->vertices.back().uv, other.mesh->vertices.back().uv);
        }
    }
    EXPECT_EQ(read.selection, written.selection);
    EXPECT_EQ(read.camera, written.camera);
    EXPECT_EQ(read.views, written.views);
    EXPECT_EQ(read.source, written.source);
    EXPECT_EQ(read.textures, written.textures);
    EXPECT_EQ(read.picture, written.picture);
}

TEST_F(SceneDocumentTest, ComesBackWithWhatShapesShare)
{
    static_cast<void>(Create());
    const SceneContent read = Open().content;
    ExpectSame(read, content);
    EXPECT_EQ(read.shapes[0].mesh, read.shapes[1].mesh);
    EXPECT_EQ(read.shapes[0].applied.identity, read.shapes[1].applied.identity);
    EXPECT_EQ(read.shapes[0].applied.gathered, read.shapes[1].applied.gathered);
    EXPECT_FALSE(QFileInfo::exists(QString::fromStdString(studio::UnfinishedPath(PathOf()))));
}

TEST_F(SceneDocumentTest, SavesWhatChangedAndNothingElse)
{
    SceneDocument document = Create();
    const auto edit = [this](std::size_t place, std::int32_t specular) {
        auto gathered =
            std::make_shared<CorvexSG::GatheredMaterial>(*content.shapes[place].applied.gathered);
        gathered->material.Specular = specular;
        content.shapes[place].applied.gathered = std::move(gathered);
    };
    edit(2, 77);
    document.Save(content);
    ExpectSame(Open().content, content);
    const auto chunks = Number("SELECT max(id) FROM chunks");
    const auto plain = Number("SELECT id FROM materials WHERE name = 'Plain'");
    edit(2, 33);
    content.shapes.erase(content.shapes.begin() + 1);
    content.selection = {0};
    document.Save(content);
    ExpectSame(Open().content, content);
    EXPECT_EQ(Number("SELECT max(id) FROM chunks"), chunks);
    EXPECT_EQ(Number("SELECT id FROM materials WHERE name = 'Plain'"), plain);
    EXPECT_EQ(Number("SELECT count(*) FROM materials"), 2);
}

TEST_F(SceneDocumentTest, KeepsWhatALaterProgramKnows)
{
    static_cast<void>(Create());
    Sql("UPDATE materials SET json = json_set(json, '$.sheen', 5, '$.raytrace.glow', 'x'); "
        "INSERT INTO document VALUES ('lighting', '{\"sun\": 1}');");
    auto opened = Open();
    auto gathered =
        std::make_shared<CorvexSG::GatheredMaterial>(*opened.content.shapes[0].applied.gathered);
    gathered->material.Specular = 1;
    opened.content.shapes[0].applied.gathered = gathered;
    opened.content.shapes[1].applied.gathered = gathered;
    opened.document.Save(opened.content);
    EXPECT_THAT(opened.content.shapes[0].applied.identity->unknown,
                AllOf(HasSubstr("\"sheen\":5"), HasSubstr("\"glow\":\"x\"")));
    EXPECT_EQ(Number("SELECT count(*) FROM materials WHERE json_extract(json, '$.sheen') = 5 AND "
                     "json_extract(json, '$.raytrace.glow') = 'x'"),
              2);
    EXPECT_EQ(Number("SELECT count(*) FROM document WHERE key = 'lighting'"), 1);
    EXPECT_THAT(Open().problems, IsEmpty());
}

TEST_F(SceneDocumentTest, PicturesGoIntoItAndOutOfIt)
{
    const std::string picture = folder.Save("Textures/oak.png", QColor(Qt::red)).toStdString();
    auto gathered = std::make_shared<CorvexSG::GatheredMaterial>();
    gathered->material.Textures.primary = picture;
    gathered->material.Textures.bump = PathOf("missing.png");
    content.shapes[2].applied.gathered = gathered;
    content.textures = studio::TexturePlace::Embedded;
    static_cast<void>(Create());
    QFile::remove(QString::fromStdString(picture));
    auto opened = Open();
    const auto& textures = opened.content.shapes[2].applied.gathered->material.Textures;
    EXPECT_EQ(QImage(QString::fromStdString(textures.primary)).pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(textures.bump, PathOf("missing.png"));
    // Saved without an edit, elsewhere, and with nobody who uses it.
    opened.document.Save(opened.content);
    static_cast<void>(
        SceneDocument::Create(PathOf("copy.corvex"), opened.content, PathOf("cache")));
    EXPECT_EQ(Open("copy.corvex").content.shapes[2].applied.gathered->material.Textures.primary,
              textures.primary);
    // Whoever has it inside may remove the file.
    QDir(folder.PathOf("cache")).removeRecursively();
    gathered =
        std::make_shared<CorvexSG::GatheredMaterial>(*opened.content.shapes[2].applied.gathered);
    ++gathered->material.Specular;
    opened.content.shapes[2].applied.gathered = gathered;
    opened.document.Save(opened.content);
    static_cast<void>(SceneDocument::Create(PathOf("copy.corvex"), opened.content, PathOf("cache"),
                                            &opened.document));
    for (const char* name : {"scene.corvex", "copy.corvex"}) {
        const auto read = Open(name).content;
        EXPECT_FALSE(QImage(QString::fromStdString(
                                read.shapes[2].applied.gathered->material.Textures.primary))
                         .isNull())
            << name;
        QDir(folder.PathOf("cache")).removeRecursively();
    }
    folder.Write("cache", "in the way");
    EXPECT_THAT(Open().problems, ElementsAre(HasSubstr("cache")));
    opened.content.shapes.pop_back();
    opened.document.Save(opened.content);
    EXPECT_LT(Bytes().count("IHDR"), 1);
}

TEST_F(SceneDocumentTest, ANewOneTakesNothingOverFromWhatItReplaces)
{
    const auto refusal = [this](const std::string& path) -> std::string {
        try {
            static_cast<void>(SceneDocument::Create(path, content, PathOf("cache")));
            return {};
        } catch (const CorvexMaterial::Error& error) {
            return error.what();
        }
    };
    static_cast<void>(Create());
    // As a save leaves it that was killed: two pages are to come back, and no more.
    const QByteArray hot = QByteArray::fromHex("d9d505f920a163d7"
                                               "00000000"
                                               "00000000"
                                               "00000002"
                                               "00000200"
                                               "00001000")
                               .leftJustified(512, '\0');
    folder.Write("scene.corvex-journal", hot);
    EXPECT_EQ(refusal(PathOf()), "");
    ExpectSame(Open().content, content);
    folder.Write("gone.corvex-journal", hot);
    EXPECT_THAT(refusal(PathOf("gone.corvex")), HasSubstr("gone.corvex-journal"));

    QDir().mkdir(folder.PathOf("folder.corvex"));
    EXPECT_EQ(::mkfifo(PathOf("pipe.corvex").c_str(), 0600), 0);
    EXPECT_THAT(refusal(PathOf("folder.corvex")), HasSubstr("folder.corvex': it is a folder"));
    EXPECT_THAT(refusal(PathOf("pipe.corvex")), HasSubstr("pipe"));
    EXPECT_THAT(refusal(PathOf("none/a.corvex")), HasSubstr("none/a.corvex': its folder"));
    EXPECT_THAT(refusal(PathOf((std::string(241, 'n') + ".corvex").c_str())),
                HasSubstr("too long"));
    EXPECT_THAT(QDir(folder.Path()).entryList({".*"}, QDir::Files | QDir::Hidden), IsEmpty());
}

TEST_F(SceneDocumentTest, KeepsShapesWhosePlacesHaveGaps)
{
    static_cast<void>(Create());
    Sql("UPDATE shapes SET place = place * 3 - 2; UPDATE shapes SET json = '{' WHERE place = 1");
    auto opened = Open();
    EXPECT_THAT(opened.problems, ElementsAre(HasSubstr("Facets")));
    opened.document.Save(opened.content);
    EXPECT_EQ(Open().content.shapes.size(), 3U);
    EXPECT_EQ(Open().content.shapes[2].applied.identity->name, "Plain");
}

TEST_F(SceneDocumentTest, RefusesWhatIsDamagedForeignOrLaterAndLeavesItAlone)
{
    static_cast<void>(Create());
    const QByteArray good = Bytes();
    const auto refusalAfter = [&](const std::function<void()>& damage) {
        damage();
        const QByteArray before = Bytes();
        std::string refusal = Refusal();
        EXPECT_EQ(Bytes(), before);
        folder.Write("scene.corvex", good);
        return refusal;
    };
    const auto write = [&](const QByteArray& bytes) {
        return [&, bytes] { folder.Write("scene.corvex", bytes); };
    };
    EXPECT_THAT(refusalAfter(write(good.left(good.size() / 2))), HasSubstr("truncated"));
    EXPECT_THAT(refusalAfter(write(good.chopped(1))), HasSubstr("truncated"));
    EXPECT_THAT(refusalAfter(write("hello")), HasSubstr("not a scene document"));
    EXPECT_THAT(refusalAfter([&] { Sql("PRAGMA user_version = 2"); }), HasSubstr("later version"));
    EXPECT_THAT(refusalAfter([&] { Sql("PRAGMA application_id = 7"); }),
                HasSubstr("another program"));
    EXPECT_THAT(refusalAfter([&] { Sql("CREATE TABLE more (a)"); }), HasSubstr("tables"));
    EXPECT_THAT(refusalAfter([&] { Sql("DELETE FROM chunks WHERE kind = 2"); }),
                HasSubstr("mesh is damaged"));
    EXPECT_THAT(refusalAfter([&] { Sql("UPDATE meshes SET vertices = 1 << 60"); }),
                HasSubstr("mesh is damaged"));
    EXPECT_THAT(refusalAfter([&] {
                    Sql("UPDATE chunks SET bytes = CAST(zeroblob(28) || x'0000C07F' || "
                        "substr(bytes, 33) AS BLOB) WHERE kind = 1");
                }),
                HasSubstr("mesh is damaged"));
    EXPECT_THAT(refusalAfter([&] {
                    Sql("INSERT INTO textures VALUES (1, '../../x', 3, '../../../../etc')");
                }),
                HasSubstr("texture in it is damaged"));
    std::stop_source stop;
    stop.request_stop();
    EXPECT_THROW(static_cast<void>(SceneDocument::Open(PathOf(), PathOf("cache"),
                                                       SceneDocument::Use::Edit, stop.get_token())),
                 CorvexMaterial::Error);
    EXPECT_THAT(Refusal(), IsEmpty());
}

TEST_F(SceneDocumentTest, IsOnesOwnWhileItIsOpen)
{
    SceneDocument document = Create();
    auto second = Open();
    EXPECT_THAT(second.document.ReadOnlyReason(), HasSubstr("another window"));
    EXPECT_THROW(second.document.Save(content), CorvexMaterial::Error);
    EXPECT_THROW(static_cast<void>(Create()), CorvexMaterial::Error);
    EXPECT_FALSE(document.IsChangedByOthers());
    Sql("UPDATE shapes SET name = 'x' WHERE place = 0");
    EXPECT_TRUE(document.IsChangedByOthers());
}

TEST(MaterialNames, SomeOfThoseThatShareGetOneOfTheirOwn)
{
    const studio::AppliedMaterial oak = Named("Oak", {});
    studio::ShapeList scene;
    for (int i = 0; i < 4; ++i) {
        scene.push_back(std::make_shared<studio::StudioShape>("shape", nullptr, oak));
    }
    const auto namesAfter = [&scene](std::vector<studio::ShapeChange> changes) {
        for (const auto& change : changes) {
            change.shape->SetApplied(change.after);
        }
        std::vector<std::string> names;
        for (const auto& shape : scene) {
            names.push_back(shape->Applied().identity->name);
        }
        return names;
    };
    const auto edited = [&](const studio::ShapeList& shapes) {
        auto changes = studio::ChangesBy([](auto& material) { ++material.Specular; }, shapes);
        studio::SplitShared(changes, scene);
        return changes;
    };
    EXPECT_THAT(namesAfter(edited({scene[0], scene[1]})),
                ElementsAre("Oak 2", "Oak 2", "Oak", "Oak"));
    EXPECT_EQ(scene[0]->Applied().identity, scene[1]->Applied().identity);
    EXPECT_THAT(namesAfter(edited({scene[0], scene[1]})),
                ElementsAre("Oak 2", "Oak 2", "Oak", "Oak"));
    EXPECT_THAT(namesAfter(studio::MadeUnique({scene[2], scene[3]}, scene)),
                ElementsAre("Oak 2", "Oak 2", "Oak 3", "Oak"));
    EXPECT_THAT(namesAfter(studio::RenamedMaterials({scene[0]}, "Oak", scene)),
                ElementsAre("Oak 4", "Oak 4", "Oak 3", "Oak"));

    const auto given = [&](const studio::ShapeList& shapes, int specular) {
        auto changes =
            studio::ChangesBy([specular](auto& material) { material.Specular = specular; }, shapes);
        studio::ShareNamed(changes, "Oak", scene);
        return changes;
    };
    EXPECT_THAT(namesAfter(given({scene[0], scene[1]}, scene[3]->Material().Specular)),
                ElementsAre("Oak", "Oak", "Oak 3", "Oak"));
    EXPECT_EQ(scene[0]->Applied(), scene[3]->Applied());
    EXPECT_THAT(namesAfter(given({scene[3]}, 77)), ElementsAre("Oak", "Oak", "Oak 3", "Oak 2"));
    EXPECT_THAT(namesAfter(given({scene[2]}, 77)), ElementsAre("Oak", "Oak", "Oak 2", "Oak 2"));
    EXPECT_EQ(scene[2]->Applied(), scene[3]->Applied());
}

}  // namespace
