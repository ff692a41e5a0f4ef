#include "Exchange.h"
#include "SampleFolder.h"

// Files as other programs write them, and what has to come of each.

namespace {

using CorvexDB::udtMaterial;
using CorvexTest::Import;
using CorvexTest::Imported;
using CorvexTest::OutcomeFor;
using CorvexTest::SampleFile;

struct Amounts {
    std::string name;
    int red;
    int green;
    int blue;
    int ambient;
    int emissive;
    int specular;
    int transparency;
};

void ExpectAmounts(const std::vector<studio::NamedMaterial>& materials,
                   const std::vector<Amounts>& expected)
{
    ASSERT_EQ(materials.size(), expected.size());
    for (std::size_t index = 0; index < expected.size(); ++index) {
        const Amounts& row = expected[index];
        const udtMaterial& material = materials[index].material;
        SCOPED_TRACE(row.name);
        EXPECT_EQ(materials[index].name, row.name);
        EXPECT_EQ(material.Color, CorvexMaterial::MakeColour({row.red, row.green, row.blue}));
        EXPECT_EQ(material.Ambient, row.ambient);
        EXPECT_EQ(material.Emissive, row.emissive);
        EXPECT_EQ(material.Specular, row.specular);
        EXPECT_EQ(material.Transparency, row.transparency);
    }
}

TEST(ForeignMtl, FromAnotherSystem)
{
    const Imported imported = Import(SampleFile("windows.mtl"));
    ExpectAmounts(imported.materials, {{"Brushed steel", 163, 163, 163, 100, 0, 50, 0},
                                       {"Window glass", 51, 102, 51, 60, 0, 100, 75},
                                       {"Lamp", 255, 204, 102, 60, 100, 0, 0}});
    const auto& steel = imported.materials[0].material;
    EXPECT_EQ(steel.Textures.primary, SampleFile("steel plate.png"));
    EXPECT_EQ(steel.Textures.bump, SampleFile("textures/scratches.png"));
    EXPECT_EQ(steel.RayTrace.Roughness, 3.0F);
    const auto& report = imported.report;
    EXPECT_EQ(OutcomeFor(report, "Brushed steel", "Ka"), "approximated");
    EXPECT_EQ(OutcomeFor(report, "Brushed steel", "map_Kd"), "mapped");
    EXPECT_EQ(OutcomeFor(report, "Brushed steel", "bump"), "approximated");
    EXPECT_EQ(OutcomeFor(report, "Window glass", "Tr"), "mapped");
    EXPECT_EQ(OutcomeFor(report, "Window glass", "Tf"), "dropped");
    EXPECT_EQ(OutcomeFor(report, "Lamp", "Ke"), "approximated");
}

TEST(ForeignMtl, AdditionsOptionsAndNonsense)
{
    const Imported imported = Import(SampleFile("additions.mtl"));
    ExpectAmounts(imported.materials, {{"K\u00e4fer", 204, 26, 26, 60, 0, 0, 0},
                                       {"Material 2", 128, 128, 128, 60, 0, 0, 0},
                                       {"bare", 255, 255, 255, 60, 0, 0, 0}});
    const auto& beetle = imported.materials[0].material;
    EXPECT_TRUE(beetle.RayTrace.Metallic);
    EXPECT_EQ(beetle.RayTrace.Reflection, 3.0F);
    EXPECT_EQ(beetle.RayTrace.Roughness, 10.0F);
    EXPECT_EQ(beetle.Textures.primary, SampleFile("steel plate.png"));
    EXPECT_EQ(beetle.Textures.environment, SampleFile("steel plate.png"));
    EXPECT_EQ(beetle.Placement, (CorvexDB::TexturePlacement{0.5F, 0.75F, 0.5F, 0.25F}));
    for (const char* dropped : {"map_Kd -clamp", "map_Kd -mm", "map_pr", "norm", "xyzzy", "pcr"}) {
        EXPECT_EQ(OutcomeFor(imported.report, "K\u00e4fer", dropped), "dropped") << dropped;
    }
    for (const char* dropped : {"d", "Ka"}) {
        EXPECT_EQ(OutcomeFor(imported.report, "Material 2", dropped), "dropped") << dropped;
    }
}

TEST(ForeignMtl, UnlitIsEmissive)
{
    const CorvexTest::SampleFolder folder;
    const QString file = folder.Write("unlit.mtl", "newmtl a\nKd 1 0 0\nillum 0\n");
    EXPECT_EQ(Import(file.toStdString()).materials.at(0).material.Emissive, 100);
}

TEST(ForeignMtl, OfPublicTestModels)
{
    // Exported by others long ago, see files/assimp/README.md.
    const Imported spider = Import(SampleFile("assimp/spider.mtl"));
    ExpectAmounts(spider.materials, {{"Skin", 211, 202, 197, 24, 0, 0, 0},
                                     {"Brusttex", 204, 204, 204, 25, 0, 0, 0},
                                     {"HLeibTex", 176, 163, 157, 29, 0, 0, 0},
                                     {"BeinTex", 204, 204, 204, 25, 0, 0, 0},
                                     {"Augentex", 204, 204, 204, 25, 0, 0, 0}});
    EXPECT_EQ(spider.materials[0].material.Textures.primary,
              SampleFile("assimp/wal67ar_small.jpg"));
    EXPECT_EQ(OutcomeFor(spider.report, "Skin", "map_Kd"), "approximated");
    const Imported house = Import(SampleFile("assimp/box_spaces.mtl"));
    ASSERT_EQ(house.materials.size(), 12U);
    EXPECT_EQ(house.materials[0].name, "Material name with many, many spaces");
    EXPECT_EQ(house.materials[8].name, "Terraind\u00e6k");
    EXPECT_EQ(house.materials[10].material.Color, CorvexMaterial::MakeColour({128, 0, 0}));
    EXPECT_EQ(house.materials[11].material.Transparency, 50);
    EXPECT_EQ(OutcomeFor(house.report, "Door", "Ks"), "dropped");
}

TEST(ForeignMaterialX, ReferencesOfVersion137)
{
    const Imported imported = Import(SampleFile("reference.mtlx"));
    ExpectAmounts(imported.materials, {{"Tiled_plate", 255, 255, 255, 60, 0, 40, 0},
                                       {"Glass", 255, 128, 64, 60, 0, 100, 90}});
    const auto& plate = imported.materials[0].material;
    EXPECT_EQ(plate.Textures.primary, SampleFile("steel plate.png"));
    EXPECT_EQ(plate.Wrap, CorvexDB::WrapType::Flat);
    EXPECT_EQ(plate.TilesPerUnit, 4.0F);
    EXPECT_TRUE(plate.RayTrace.Metallic);
    EXPECT_EQ(imported.materials[1].material.RayTrace.Roughness, 1.0F);
    EXPECT_EQ(OutcomeFor(imported.report, "Tiled_plate", "specular_roughness"), "approximated");
    EXPECT_EQ(OutcomeFor(imported.report, "Glass", "transmission_color"), "approximated");
    EXPECT_EQ(OutcomeFor(imported.report, "Glass", "specular_IOR"), "dropped");
    EXPECT_EQ(OutcomeFor(imported.report, "", "xi:include"), "dropped");
}

TEST(ForeignMaterialX, NodeGraphsOfVersion138)
{
    const Imported imported = Import(SampleFile("nodes.mtlx"));
    ExpectAmounts(imported.materials, {{"Old wall", 128, 128, 128, 60, 0, 50, 0},
                                       {"Ember", 188, 137, 99, 60, 74, 100, 50},
                                       {"Circle", 231, 231, 231, 60, 0, 100, 0}});
    const auto& wall = imported.materials[0].material;
    EXPECT_EQ(wall.Textures.primary, SampleFile("steel plate.png"));
    // Below the document's prefix, as is the other.
    EXPECT_EQ(wall.Textures.bump, SampleFile("images/scratches.png"));
    EXPECT_EQ(wall.Placement, (CorvexDB::TexturePlacement{0.0F, 0.75F, 0.5F, 0.25F}));
    // Amounts that only an image tells.
    EXPECT_EQ(wall.RayTrace.Roughness, 5.0F);
    EXPECT_FALSE(wall.RayTrace.Metallic);
    EXPECT_EQ(OutcomeFor(imported.report, "Old wall", "metalness"), "approximated");
    EXPECT_EQ(imported.materials[1].material.RayTrace.Reflection, 4.0F);
    const auto contrast = CorvexTest::RowFor(imported.report, "Old wall", "base_color");
    ASSERT_TRUE(contrast);
    EXPECT_NE(contrast->note.find("contrast"), std::string::npos);
    EXPECT_EQ(OutcomeFor(imported.report, "Old wall", "sheen"), "dropped");
    EXPECT_EQ(OutcomeFor(imported.report, "Ember", "opacity"), "approximated");
    EXPECT_EQ(OutcomeFor(imported.report, "Foreign", "surfaceshader"), "dropped");
    EXPECT_EQ(OutcomeFor(imported.report, "Circle", "base_color"), "approximated");
}

TEST(ForeignGltf, EveryMaterialWornOrNot)
{
    const Imported imported = Import(SampleFile("worn.gltf"));
    ExpectAmounts(imported.materials, {{"Painted", 128, 0, 255, 60, 0, 60, 0},
                                       {"Nobody wears this", 255, 0, 0, 60, 0, 0, 0},
                                       {"Leaf", 255, 255, 255, 60, 50, 0, 0},
                                       {"Old gloss", 128, 255, 0, 60, 0, 60, 50}});
    const auto& painted = imported.materials[0].material;
    EXPECT_EQ(painted.Textures.primary, SampleFile("steel plate.png"));
    EXPECT_EQ(painted.Placement, (CorvexDB::TexturePlacement{0.25F, 0.5F, 0.5F, 0.25F}));
    EXPECT_TRUE(painted.DoubleSided);
    EXPECT_TRUE(painted.RayTrace.Metallic);
    EXPECT_EQ(painted.RayTrace.Reflection, 7.0F);
    EXPECT_EQ(imported.materials[2].material.AlphaTest, 6);
    EXPECT_EQ(imported.materials[2].material.AlphaTestReference, 102);
    EXPECT_EQ(OutcomeFor(imported.report, "Painted", "metallicFactor"), "approximated");
    EXPECT_EQ(OutcomeFor(imported.report, "Painted", "normalTexture"), "dropped");
    EXPECT_EQ(OutcomeFor(imported.report, "Leaf", "emissiveFactor"), "mapped");
}

class EitherWay : public testing::TestWithParam<const char*> {};

TEST_P(EitherWay, TheSameMaterialsAndTheSameReport)
{
    const std::string path = SampleFile(GetParam());
    const Imported imported = Import(path);
    const auto opened =
        studio::ImportModelNow(QString::fromStdString(path), CorvexTest::MaterialImporter());
    ASSERT_TRUE(opened.model) << opened.message.toStdString();
    const auto lines = [](const std::vector<studio::NamedMaterial>& materials,
                          const studio::Report& report) {
        std::vector<std::string> all;
        for (const auto& [name, material, details] : materials) {
            all.push_back(name + studio::JsonOfMaterial(material, "/"));
        }
        for (const auto& [material, property, outcome, note, kind] : report.Rows()) {
            all.push_back(material + '|' + property + '|' + TextOf(outcome) + '|' + note + kind);
        }
        return all;
    };
    EXPECT_EQ(lines(opened.model->materials, opened.model->report),
              lines(imported.materials, imported.report));
    EXPECT_FALSE(imported.report.Rows().empty());
}

INSTANTIATE_TEST_SUITE_P(Files, EitherWay,
                         testing::Values("windows.obj", "worn.gltf", "../../scene/data/box.obj",
                                         "../../scene/data/leaf.gltf", "../../scene/data/tetra.ply",
                                         "../../scene/data/frames.x"));

TEST(ForeignObj, ShapesWearWhatTheLibraryOfTheModelSays)
{
    const auto opened = studio::ImportModelNow(QString::fromStdString(SampleFile("windows.obj")),
                                               CorvexTest::MaterialImporter());
    ASSERT_TRUE(opened.model) << opened.message.toStdString();
    std::string worn;
    for (const studio::ImportedShape& shape : opened.model->shapes) {
        const studio::ImportedMesh& mesh = opened.model->meshes[shape.mesh];
        worn += shape.name + ": " + opened.model->materials[mesh.material].name + ", " +
                std::to_string(mesh.mesh->indices.size() / 3) + '\n';
    }
    EXPECT_EQ(worn, "stand: Brushed steel, 2\nLamp: Lamp, 1\npane: Window glass, 1\n"
                    "nowhere to be found: Default, 1\n");
    const auto& steel = opened.model->materials[0].material;
    EXPECT_EQ(steel.Ambient, 100);
    EXPECT_EQ(steel.RayTrace.Roughness, 3.0F);
    EXPECT_EQ(opened.model->materials.back().material.Emissive, 0) << "of what names none";
}

}  // namespace
