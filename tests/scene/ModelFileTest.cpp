#include "Formats.h"
#include "ModelPacking.h"
#include "ShapeNames.h"
#include <CorvexMaterial/Status.h>

#include <cstring>

namespace {

using studio::ImportedModel;
using studio::PackModel;
using studio::UnpackModel;

ImportedModel Unpack(const QByteArray& bytes)
{
    return UnpackModel(
        std::as_bytes(std::span(bytes.constData(), static_cast<std::size_t>(bytes.size()))));
}

bool Refuses(const QByteArray& bytes)
{
    try {
        (void)Unpack(bytes);
        return false;
    } catch (const std::runtime_error&) {
        return true;
    }
}

QByteArray PackedBox()
{
    return PackModel(studio::ReadForeignFile(SCENE_TEST_DATA "/box.obj"));
}

TEST(ModelFile, BringsBackWhatWasPacked)
{
    ImportedModel sent = studio::ReadForeignFile(SCENE_TEST_DATA "/leaf.gltf");
    sent.pictures.push_back({"bytes", {0}});
    const ImportedModel got = Unpack(PackModel(sent));
    ASSERT_EQ(got.materials.size(), sent.materials.size());
    EXPECT_EQ(got.materials[0].name, sent.materials[0].name);
    EXPECT_EQ(got.materials[0].material, sent.materials[0].material);
    ASSERT_EQ(got.report.Rows().size(), sent.report.Rows().size());
    EXPECT_EQ(got.report.Rows().back().note, sent.report.Rows().back().note);
    ASSERT_EQ(got.pictures.size(), 1U);
    EXPECT_EQ(got.pictures[0].bytes, sent.pictures[0].bytes);
    EXPECT_EQ(got.pictures[0].wearers, sent.pictures[0].wearers);
    ASSERT_EQ(got.shapes.size(), sent.shapes.size());
    EXPECT_EQ(got.shapes[0].name, sent.shapes[0].name);
    EXPECT_EQ(got.shapes[0].worldFromMesh, sent.shapes[0].worldFromMesh);
    const studio::Mesh& before = *sent.meshes[0].mesh;
    const studio::Mesh& after = *got.meshes[0].mesh;
    EXPECT_EQ(after.indices, before.indices);
    ASSERT_EQ(after.vertices.size(), before.vertices.size());
    EXPECT_EQ(std::memcmp(after.vertices.data(), before.vertices.data(),
                          before.vertices.size() * sizeof(studio::Vertex)),
              0);
}

TEST(ModelFile, EveryTruncationAndExtensionIsRefused)
{
    const QByteArray whole = PackedBox();
    for (qsizetype size = 0; size < whole.size(); ++size) {
        ASSERT_TRUE(Refuses(whole.left(size))) << size;
    }
    EXPECT_TRUE(Refuses(whole + '\0'));
    EXPECT_FALSE(Refuses(whole));
}

TEST(ModelFile, NoDamageGetsPastTheChecks)
{
    const QByteArray whole = PackedBox();
    std::mt19937 random(3);
    for (int round = 0; round < 20000; ++round) {
        QByteArray damaged = whole;
        for (unsigned int changes = 1 + random() % 4; changes > 0; --changes) {
            const auto at = static_cast<qsizetype>(random() % static_cast<unsigned>(whole.size()));
            damaged[at] = static_cast<char>(random() % 3 == 0 ? 0xFF : random());
        }
        try {
            const ImportedModel model = Unpack(damaged);
            for (const auto& shape : model.shapes) {
                const auto& mesh = model.meshes.at(shape.mesh);
                (void)model.materials.at(mesh.material);
                for (const std::uint32_t index : mesh.mesh->indices) {
                    ASSERT_TRUE(std::isfinite(mesh.mesh->vertices.at(index).position[0]));
                }
            }
        } catch (const CorvexMaterial::Error& error) {
            ASSERT_EQ(error.Code(), CorvexMaterial::Status::FileFailed);
        }
    }
}

TEST(ModelFile, NumbersThatAreNoCoordinatesAreRefused)
{
    for (const float bad : {std::numeric_limits<float>::quiet_NaN(),
                            std::numeric_limits<float>::infinity(), 1.0e30F}) {
        ImportedModel model;
        model.materials.resize(1);
        studio::Vertex vertex;
        vertex.normal[1] = bad;
        model.meshes.push_back({studio::MakeMesh({vertex, {}, {}}, {0, 1, 2}), 0, true});
        EXPECT_TRUE(Refuses(PackModel(model)));
        model.meshes[0].mesh = studio::MakeMesh({{}, {}, {}}, {0, 1, 2});
        model.shapes.push_back({"placed", 0, {}});
        EXPECT_FALSE(Refuses(PackModel(model)));
        model.shapes[0].worldFromMesh(0, 3) = bad;
        EXPECT_TRUE(Refuses(PackModel(model)));
    }
}

TEST(ShapeNames, AnythingBecomesOneReadableLine)
{
    for (const auto& [raw, readable] : std::map<std::string, std::string>{
             {"Left wheel", "Left wheel"},
             {"  two\n\tlines ", "two lines"},
             {"Käfer 車 🚗", "Käfer 車 🚗"},
             {"bad \xC3\x28 bytes \xFF", "bad \uFFFD( bytes \uFFFD"},
             {"right\u202Eleft\x1B[31m", "rightleft[31m"},
             {"", "fallback"},
             {"\x01\x02\n", "fallback"},
             {std::string(5, '\0') + "x", "x"},
             {std::string(200000, 'n'), std::string(80, 'n')},
         }) {
        EXPECT_EQ(studio::ReadableName(raw, "fallback"), readable);
    }
}

}  // namespace
