#include "RunProgram.h"
#include "SampleFolder.h"
#include "SceneDocument.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

using CorvexTest::Outcome;
using studio::SceneDocument;
using testing::HasSubstr;

/// Three squares in one file, the last two of one material.
QString Model(const char* first = "Lid")
{
    return QString("mtllib m.mtl\nv 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\nvt 0 0\nv 0 2 0\n"
                   "o %1\nusemtl Oak\nf 1/1 2/1 3/1\no Leg 1\nusemtl Steel\nf 1/1 3/1 4/1\n"
                   "o Leg 2\nf 1/1 2/1 5/1\n")
        .arg(first);
}

class SceneCommands : public testing::Test {
protected:
    SceneCommands()
    {
        folder.Write("m.obj", Model().toUtf8());
        folder.Write("m.mtl", "newmtl Oak\nmap_Kd oak.png\nnewmtl Steel\nKd 0.5 0.5 0.5\n");
        folder.Save("oak.png", QColor(Qt::red));
        EXPECT_EQ(Run("scene create m.obj -o a.corvex").exitCode, 0);
    }

    /// Words with an @ for each blank inside them.
    Outcome Run(const QString& line)
    {
        QStringList words = line.split(u' ');
        words.replaceInStrings("@", " ");
        return CorvexTest::RunProgram(COMMAND_PROGRAM, words, [this](QProcess& process) {
            process.setWorkingDirectory(folder.Path());
            auto environment = QProcessEnvironment::systemEnvironment();
            environment.insert("XDG_CACHE_HOME", folder.PathOf("cache"));
            process.setProcessEnvironment(environment);
        });
    }
    /// "Leg 1: Steel 30" and so on.
    QStringList Dressed(const QString& file)
    {
        QMap<QString, int> specular;
        QStringList shapes;
        const QStringList lines = Run("scene show --json " + file).output.split('\n');
        for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
            const auto json = QJsonDocument::fromJson(line->toUtf8()).object();
            const QString material = json["material"].toString();
            if (json.contains("attributes")) {
                specular[material] = json["attributes"]["specular"].toInt();
            } else if (json.contains("shape")) {
                shapes.prepend(QString("%1: %2 %3")
                                   .arg(json["shape"].toString(), material)
                                   .arg(specular[material]));
            }
        }
        return shapes;
    }
    std::string PathOf(const char* name) const { return folder.PathOf(name).toStdString(); }
    QByteArray Bytes() const { return CorvexTest::ContentOf(folder.PathOf("a.corvex")); }

    CorvexTest::SampleFolder folder;
};

TEST_F(SceneCommands, ChangesTheShapesThatAreNamedAndNoOthers)
{
    const QByteArray before = Bytes();
    EXPECT_EQ(Run("scene set a.corvex --shape *g@2 specular=77 -o b.corvex").exitCode, 0);
    EXPECT_EQ(Bytes(), before);
    EXPECT_EQ(Run("scene set b.corvex --material Oak specular=11 colour=Bronze").exitCode, 0);
    const QStringList split = Dressed("b.corvex");
    ASSERT_EQ(split.size(), 3);
    EXPECT_EQ(split[0], "Lid: Oak 11");
    EXPECT_TRUE(split[1].startsWith("Leg 1: Steel ") && !split[1].endsWith("77"));
    EXPECT_EQ(split[2], "Leg 2: Steel 2 77");

    ASSERT_EQ(Run("library add l.cvm --name Gold --material specular=99").exitCode, 0);
    EXPECT_EQ(Run("scene apply-library b.corvex l.cvm gold --shape Lid").exitCode, 0);
    EXPECT_EQ(Run("scene apply-library b.corvex l.cvm gold --shape Leg*").exitCode, 0);
    EXPECT_EQ(Dressed("b.corvex"),
              QStringList({"Lid: Gold 99", "Leg 1: Gold 99", "Leg 2: Gold 99"}));
    EXPECT_EQ(Run("library import m.cvm b.corvex l.cvm").output, "Entries added: 2.\n");
}

TEST_F(SceneCommands, AModelThatIsReadAgainKeepsItsMaterials)
{
    ASSERT_EQ(Run("scene set a.corvex --shape Lid --shape Leg@2 specular=77").exitCode, 0);
    QString changed = Model("Top") + "o New\nusemtl Oak\nf 2/1 3/1 5/1\n";
    changed.replace("o Leg 1", "o Leg 3").replace("f 1/1 3/1 4/1", "f 1/1 2/1 5/1");
    folder.Write("m.obj", changed.toUtf8());
    EXPECT_THAT(Run("scene validate a.corvex").errors.toStdString(), HasSubstr("has changed"));
    const QByteArray before = Bytes();
    EXPECT_EQ(Run("scene reload a.corvex --strict").exitCode, 1);
    EXPECT_EQ(Bytes(), before);
    EXPECT_EQ(Run("scene reload a.corvex").output,
              "added\tLeg 3\nadded\tNew\nrenamed\tTop\twas Lid\nremoved\tLeg 1\nShapes kept: 2.\n");
    EXPECT_EQ(Run("scene validate a.corvex --strict").exitCode, 0);
    QStringList dressed = Dressed("a.corvex");
    ASSERT_EQ(dressed.size(), 4);
    EXPECT_EQ(dressed[0], "Top: Oak 77");
    EXPECT_EQ(dressed[2], "Leg 2: Steel 2 77");
    EXPECT_EQ(dressed[3], "New: Oak 77");
}

TEST_F(SceneCommands, TexturesGoWithTheDocumentOrAreMissed)
{
    ASSERT_EQ(Run("scene create a.corvex -o b.corvex --embed-textures").exitCode, 0);
    QFile::remove(folder.PathOf("oak.png"));
    const Outcome lost = Run("scene validate a.corvex");
    EXPECT_EQ(lost.exitCode, 0);
    EXPECT_THAT(lost.errors.toStdString(), HasSubstr(PathOf("oak.png")));
    EXPECT_EQ(Run("scene validate a.corvex --strict").exitCode, 1);
    EXPECT_EQ(Run("scene validate b.corvex --strict").exitCode, 0);
    ASSERT_EQ(Run("library import l.cvm b.corvex").exitCode, 0);
    EXPECT_THAT(Run("render b.corvex --size 40x30 --out a.png").errors.toStdString(),
                HasSubstr("b.corvex: shapes 3, materials 2."));
    QDir(folder.PathOf("cache")).removeRecursively();
    EXPECT_EQ(Run("library validate l.cvm").exitCode, 0);
}

TEST_F(SceneCommands, WhatAnotherHasOpenOrIsDamagedStaysAsItIs)
{
    const auto expectRefusal = [this](const char* line, const char* cause) {
        const QByteArray before = Bytes();
        const Outcome run = Run(line);
        EXPECT_EQ(run.exitCode, 1) << line;
        EXPECT_THAT(run.errors.toStdString(), HasSubstr(cause)) << line;
        EXPECT_EQ(Bytes(), before) << line;
    };
    expectRefusal("scene set a.corvex --shape Lit specular=1", "no shape \"Lit\"");
    expectRefusal("scene set a.corvex --all textures.bump=no.png --strict", "/no.png");
    expectRefusal("scene apply-library a.corvex m.mtl Elm --all", "no material \"Elm\"");
    {
        const auto opened = SceneDocument::Open(PathOf("a.corvex"), PathOf("cache"));
        EXPECT_TRUE(opened.content.camera);
        EXPECT_THAT(opened.content.picture, HasSubstr("PNG"));
        expectRefusal("scene set a.corvex --all specular=1", "another window has it open");
        expectRefusal("scene create m.obj -o a.corvex", "another window has it open");
        EXPECT_EQ(Run("scene set a.corvex --all specular=1 -o b.corvex").exitCode, 0);
    }
    const auto looked =
        SceneDocument::Open(PathOf("a.corvex"), PathOf("cache"), SceneDocument::Use::Read);
    EXPECT_EQ(Run("scene set a.corvex --all specular=1").exitCode, 0) << "looking claims nothing";
    folder.Write("a.corvex", Bytes().left(5000));
    for (const char* line : {"scene show a.corvex", "scene reload a.corvex",
                             "render a.corvex --out p.png", "scene set a.corvex --all specular=1",
                             "library import l.cvm a.corvex", "convert a.corvex c.glb"}) {
        expectRefusal(line, "truncated");
    }
    for (const char* line : {"scene", "scene paint a.corvex", "scene set a.corvex --all shine=1",
                             "scene set a.corvex specular=1", "scene set m.obj --all specular=1",
                             "scene show a.corvex --all", "scene create m.obj -o a.obj"}) {
        EXPECT_EQ(Run(line).exitCode, 2) << line;
    }
}

}  // namespace
