#include "SavingBack.h"

#include "Formats.h"
#include "FullDisk.h"
#include "ModelShapes.h"
#include "SampleFolder.h"
#include "SceneDocument.h"
#include <CorvexMaterial/Status.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtEndian>

// What is saved back into a model's own file, and what of that file stays as it was.

namespace {

using CorvexDB::udtMaterial;
using CorvexTest::ContentOf;

/// A triangle twice, and in the document much that is not ours.
constexpr const char* kDocument = R"({
	"asset" : { "version":"2.0" },	"extras":{"mine":[1.50, 1e2, "\u00e9"]},
	"extensionsUsed": ["ACME_unknown"],
	"scene":0, "scenes":[{"nodes":[0,1]}],
	"nodes":[ {"mesh":0, "name":"left"}, {"mesh":0, "translation":[2.0,0,0]} ],
	"meshes":[{"primitives":[{"attributes":{"POSITION":0},"material":1}], "extras":{"a":1}}],
	"materials": [
		{ "name":"Unworn", "pbrMetallicRoughness":{ "baseColorFactor":[0.50,0.50,0.50,1.0] } },
		{
			"extensions": { "ACME_unknown": { "depth":0.250 } },
			"pbrMetallicRoughness": {
				"baseColorFactor": [0.0, 1.0, 0.0, 1.00],
				"metallicFactor": 0.0
			},
			"name": "Worn", "alphaMode":"OPAQUE"
		}
	],
	"animations":[],
	"accessors":[{"bufferView":0,"componentType":5126,"count":3,"type":"VEC3"}],
	"bufferViews":[{"buffer":0,"byteLength":36}],
	"buffers":[{"byteLength":36,"uri":"data:application/octet-stream;base64,AAAAAAAAAAAAAAAAAACAPwAAAAAAAAAAAAAAAAAAgD8AAAAA"}]
}
)";

constexpr const char* kLibrary = "# of another program\r\n"
                                 "newmtl Grass\r\n"
                                 "\tKd  0.0 1.0 0.0\r\n"
                                 "\tNi 1.450000\r\n"
                                 "\tmap_Kd -mm 0 0.5 -clamp on blade.png\r\n"
                                 "  # its comment\r\n"
                                 "\r\n"
                                 "newmtl Stone\r\n"
                                 "Kd .5 .5 .5\r\n"
                                 "unknown 1 2 3\r\n";
constexpr const char* kModel = "mtllib a.mtl\r\nv 0 0 0\r\nv 1 0 0\r\nv 0 1 0\r\n"
                               "usemtl Grass\r\ng one\r\nf 1 2 3\r\ng two\r\nf 1 3 2\r\n"
                               "usemtl  Stone # no comment in a name\r\ng three\r\nf 1 2 3\r\n";

QByteArray BinaryOf(QByteArray text)
{
    text.append((4 - text.size() % 4) % 4, ' ');
    const QByteArray rest = QByteArray::fromHex("0400000042494e0001020304");
    QByteArray head(20, '\0');
    const auto put = [&head](qsizetype at, qsizetype number) {
        qToLittleEndian(static_cast<quint32>(number), head.data() + at);
    };
    head.replace(0, 4, "glTF");
    put(4, 2);
    put(8, head.size() + text.size() + rest.size());
    put(12, text.size());
    head.replace(16, 4, "JSON");
    return head + text + rest;
}

/// A model on the disk and the scene that was opened from it.
class SavingBackTest : public testing::Test {
protected:
    void Open(const QString& name, const QByteArray& bytes)
    {
        m_path = m_folder.Write(name, bytes);
        OpenAgain();
    }
    void OpenObj()
    {
        m_folder.Write("a.mtl", kLibrary);
        Open("a.obj", kModel);
    }
    void OpenAgain() { m_shapes = studio::ShapesOf(ReadSource()); }
    /// The scene comes out of a document that has its images inside.
    void OpenDocumentOfIt()
    {
        const std::string file = m_folder.PathOf("a.corvex").toStdString();
        studio::SceneContent content;
        content.textures = studio::TexturePlace::Embedded;
        for (const auto& shape : m_shapes) {
            content.shapes.push_back(shape->State());
        }
        std::ignore = studio::SceneDocument::Create(file, content, {});
        const std::string pictures = m_folder.PathOf("cache").toStdString();
        m_shapes.clear();
        for (const auto& state : studio::SceneDocument::Open(file, pictures).content.shapes) {
            m_shapes.push_back(std::make_shared<studio::StudioShape>(state));
        }
        ReadSource();
        EXPECT_TRUE(studio::AreOf(m_source, m_shapes));
    }
    /// Another material for some of the shapes, under another name when they part.
    template <typename Change>
    void Edit(std::vector<std::size_t> shapes, const Change& change, const char* name = nullptr)
    {
        studio::AppliedMaterial applied = m_shapes.at(shapes.front())->Applied();
        udtMaterial material = applied.gathered->material;
        change(material);
        auto identity = applied.identity;
        if (name != nullptr) {
            identity = std::make_shared<studio::SceneMaterial>(studio::SceneMaterial{name, {}});
        }
        applied = studio::WholeMaterial(material, applied.coordinates);
        applied.identity = identity;
        for (const std::size_t shape : shapes) {
            m_shapes.at(shape)->SetApplied(applied);
        }
    }
    studio::SourcePatch Patch() const { return studio::PatchOf(m_source, Now()); }
    void Save()
    {
        studio::SaveBack(m_source, Now());
        ReadSource();
    }
    /// Saves; the file reads as what the scene shows.
    void ExpectSaved()
    {
        Save();
        const studio::StudioScene::Shapes shown = m_shapes;
        OpenAgain();
        ASSERT_EQ(m_shapes.size(), shown.size());
        for (std::size_t i = 0; i < shown.size(); ++i) {
            EXPECT_EQ(m_shapes[i]->Material(), shown[i]->Material()) << i;
        }
    }
    QByteArray Content() const { return ContentOf(m_path); }
    QByteArray Library() const { return ContentOf(m_folder.PathOf("a.mtl")); }

    CorvexTest::SampleFolder m_folder;
    QString m_path;
    studio::MaterialSource m_source;
    studio::StudioScene::Shapes m_shapes;

private:
    [[nodiscard]] studio::DressedShapes Now() const
    {
        return studio::DressedNow(m_source, m_shapes);
    }
    studio::ImportedModel ReadSource()
    {
        studio::ImportedModel model = studio::ReadModel(m_path.toStdString());
        m_source = studio::SourceOf(m_path.toStdString(), model);
        return model;
    }
};

void MakeRed(udtMaterial& material)
{
    material.Color = CorvexMaterial::MakeColour({255, 0, 0});
}

TEST_F(SavingBackTest, WhatNobodyChangedIsNotWritten)
{
    for (const auto& [name, bytes] : std::map<QString, QByteArray>{
             {"a.gltf", kDocument}, {"a.glb", BinaryOf(kDocument)}, {"b.obj", kModel}}) {
        m_folder.Write("a.mtl", kLibrary);
        Open(name, bytes);
        EXPECT_TRUE(Patch().files.empty()) << name.toStdString();
        EXPECT_TRUE(Patch().report.Rows().empty()) << name.toStdString();
    }
}

TEST_F(SavingBackTest, AColourChangesItsOwnNumbersOnly)
{
    const QByteArray wanted =
        QByteArray(kDocument).replace("[0.0, 1.0, 0.0, 1.00]", "[1, 0, 0.0, 1.00]");
    Open("a.gltf", kDocument);
    Edit({0, 1}, MakeRed);
    ExpectSaved();
    EXPECT_EQ(Content(), wanted);

    Open("a.glb", BinaryOf(kDocument));
    Edit({0, 1}, MakeRed);
    ExpectSaved();
    EXPECT_EQ(Content(), BinaryOf(wanted));

    OpenObj();
    Edit({0, 1}, MakeRed);
    ExpectSaved();
    EXPECT_EQ(Library(), QByteArray(kLibrary).replace("Kd  0.0 1.0 0.0", "Kd  1 0 0"));
    EXPECT_EQ(Content(), kModel);
}

TEST_F(SavingBackTest, AnAddedTextureComesWithWhatItNeeds)
{
    const QString leaf = m_folder.Save("leaf one.png", QColor(Qt::green));
    const auto wear = [&](udtMaterial& material) {
        material.Textures.primary = leaf.toStdString();
        material.Placement = {0.25F, 0.0F, 0.5F, 1.0F};
    };
    Open("a.gltf", kDocument);
    Edit({0, 1}, wear);
    ExpectSaved();
    const QJsonObject root = QJsonDocument::fromJson(Content()).object();
    EXPECT_EQ(root["images"].toArray().at(0)["uri"], "leaf%20one.png");
    EXPECT_EQ(root["extensionsUsed"].toArray(),
              QJsonArray({"ACME_unknown", "KHR_texture_transform"}));
    EXPECT_TRUE(Content().contains("\"extras\":{\"mine\":[1.50, 1e2, \"\\u00e9\"]}"));

    OpenObj();
    Edit({0, 1}, wear);
    ExpectSaved();
    EXPECT_TRUE(Library().contains(
        "\tmap_Kd -mm 0 0.5 -clamp on -o 0.25 0 0 -s 0.5 1 1 leaf one.png\r\n  # its comment\r\n"))
        << Library().toStdString();
}

/// Each amount in the words that the file has for it.
TEST_F(SavingBackTest, EveryAmountIsReadAgain)
{
    const auto change = [](udtMaterial& material) {
        material.Color = CorvexMaterial::MakeColour({20, 120, 220});
        material.Emissive = 40;
        material.Specular = 70;
        material.Transparency = 30;
        material.RayTrace.Reflection = 4;
    };
    for (const char* extension :
         {R"("ACME_unknown": { "depth":0.250 })",
          R"("KHR_materials_pbrSpecularGlossiness":{"diffuseFactor":[0,1,0,1]})",
          R"("KHR_materials_transmission":{"transmissionFactor":0.5})",
          R"("KHR_materials_emissive_strength":{"emissiveStrength":4})"}) {
        Open("a.gltf",
             QByteArray(kDocument).replace(R"("ACME_unknown": { "depth":0.250 })", extension));
        Edit({0, 1}, change);
        EXPECT_EQ(Patch().report.Count(studio::Outcome::Dropped), 0) << extension;
        ExpectSaved();
    }
    for (const char* statements : {"illum 0", "Ns 0\r\nillum 1", "Tr 0.5", "d 0.1\r\nTr 0.5"}) {
        m_folder.Write("a.mtl", QByteArray(kLibrary).replace("unknown 1 2 3", statements));
        Open("a.obj", kModel);
        Edit({2}, change);
        ExpectSaved();
    }
}

TEST_F(SavingBackTest, WhatCannotBeSaidIsARow)
{
    Open("a.gltf", QByteArray(kDocument).replace("ACME_unknown\": {", "KHR_materials_unlit\": {"));
    Edit({0, 1}, [](udtMaterial& material) {
        material.Ambient = 10;
        material.Emissive = 50;
    });
    const studio::SourcePatch patch = Patch();
    EXPECT_TRUE(patch.files.empty());
    EXPECT_EQ(patch.report.Count(studio::Outcome::Dropped), 2);

    OpenObj();
    Edit(
        {0, 1}, [](udtMaterial&) {}, "Lawn");
    EXPECT_EQ(Patch().report.Count(studio::Outcome::Dropped), 1);
}

// Two nodes show one mesh; two groups of the model are under one statement.
TEST_F(SavingBackTest, ShapesThatPartGetMaterialsOfTheirOwn)
{
    Open("a.gltf", kDocument);
    Edit({1}, MakeRed, "Worn 2");
    ExpectSaved();
    EXPECT_EQ(m_source.asRead.materials.at(2).name, "Worn 2");
    const QJsonObject root = QJsonDocument::fromJson(Content()).object();
    EXPECT_EQ(root["meshes"].toArray().size(), 2);
    EXPECT_EQ(root["meshes"].toArray().at(1)["extras"], QJsonObject({{"a", 1}}));

    OpenObj();
    Edit({1}, MakeRed, "Grass 2");
    ExpectSaved();
    EXPECT_EQ(Content(), QByteArray(kModel).replace("f 1 3 2", "usemtl Grass 2\r\nf 1 3 2"));
    EXPECT_TRUE(Library().startsWith(kLibrary));
}

TEST_F(SavingBackTest, PlainShapesGetALibrary)
{
    Open("plain.obj", QByteArray(kModel).replace("mtllib a.mtl\r\n", "").replace("usemtl", "#") +
                          QByteArray(2000, '#'));
    Edit({0}, MakeRed, "Red");
    {
        const CorvexTest::FullDisk disk(1000);  // has room for the library
        EXPECT_THROW(Save(), CorvexMaterial::Error);
    }
    EXPECT_FALSE(QFile::exists(m_folder.PathOf("plain.mtl")));
    ExpectSaved();
    EXPECT_TRUE(Content().startsWith("mtllib plain.mtl\r\n"));
    EXPECT_EQ(m_source.files.size(), 2);
}

TEST_F(SavingBackTest, ASecondTimeOnlyWhatChangedSince)
{
    Open("a.gltf", kDocument);
    Edit({1}, MakeRed, "Worn 2");
    Save();
    EXPECT_TRUE(Patch().files.empty());
    Edit({0}, [](udtMaterial& material) { material.DoubleSided = true; });
    ExpectSaved();
}

TEST_F(SavingBackTest, AFileThatAnotherProgramChangedIsLeftAlone)
{
    OpenObj();
    Edit({0, 1}, MakeRed);
    m_folder.Write("a.mtl", QByteArray(kLibrary).replace("Stone", "Slate"));
    const QByteArray theirs = Library();
    EXPECT_THROW(Save(), CorvexMaterial::Error);
    EXPECT_EQ(Library(), theirs);
}

TEST_F(SavingBackTest, ASceneOutOfADocumentIsTheOneThatWasOpened)
{
    m_folder.Save("leaf.png", QColor(Qt::green));
    const QByteArray worn = QByteArray(kDocument).replace(
        R"("metallicFactor")", R"("baseColorTexture":{"index":0},"metallicFactor")");
    const QByteArray document = QByteArray(worn).replace(
        R"("animations")",
        R"("images":[{"uri":"leaf.png"}],"textures":[{"source":0}],"animations")");
    Open("a.gltf", document);
    OpenDocumentOfIt();
    EXPECT_TRUE(Patch().files.empty());
    Edit({0, 1}, MakeRed);
    Save();
    EXPECT_EQ(Content(),
              QByteArray(document).replace("[0.0, 1.0, 0.0, 1.00]", "[1, 0, 0.0, 1.00]"));

    m_folder.Save("blade.png", QColor(Qt::green));
    OpenObj();
    OpenDocumentOfIt();
    EXPECT_TRUE(Patch().files.empty());
    Edit({0, 1}, MakeRed);
    Save();
    EXPECT_EQ(Library(), QByteArray(kLibrary).replace("Kd  0.0 1.0 0.0", "Kd  1 0 0"));
}

TEST_F(SavingBackTest, ColoursOfVerticesAreReckonedWith)
{
    const char* const coloured =
        "mtllib a.mtl\nv 0 0 0 .9 .3 0\nv 1 0 0 1 .3 .5\nv 0 1 0 .9 .3 .5\n"
        "v 0 0 1\nv 1 0 1\nv 0 1 1\nusemtl Stone\no dark\nf 1 2 3\no light\nf 4 5 6\n";
    m_folder.Write("a.mtl", kLibrary);
    for (const int level : {0, 3, 64, 77, 101, 119}) {
        Open("a.obj", coloured);
        Edit({0, 1}, [&](udtMaterial& material) {
            material.Color = CorvexMaterial::MakeColour({level, level / 2, level / 3});
            material.Specular = 70;
        });
        EXPECT_EQ(Patch().report.Count(studio::Outcome::Approximated), 0) << level;
        ExpectSaved();
    }
    Edit({0, 1}, [](udtMaterial& material) { material.Specular = 40; });
    Save();
    EXPECT_TRUE(Library().contains("Ks"));
    // A part that is darker than what wore the material gets no colour that nobody gave it.
    const QByteArray stone = Library().mid(Library().indexOf("Kd ", Library().indexOf("Stone")), 8);
    Edit(
        {0}, [](udtMaterial& material) { material.Specular = 10; }, "Dark");
    EXPECT_EQ(Patch().report.Count(studio::Outcome::Approximated), 2);
    Save();
    EXPECT_EQ(Library().count(stone), 2) << Library().toStdString();
}

}  // namespace
