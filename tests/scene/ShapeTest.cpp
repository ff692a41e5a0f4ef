#include "BoxShape.h"
#include "MeshShading.h"
#include "SampleFolder.h"
#include "Selection.h"
#include "StudioScene.h"
#include <CorvexMaterial/Status.h>

namespace {

using CorvexDB::ApplyMode;
using CorvexMaterial::Status;
using CorvexSG::CoordinateMode;
using CorvexSG::GatheredMaterial;
using CorvexSG::SelectionKind;
using studio::StudioScene;
using studio::StudioShape;

struct ShapeFixture : testing::Test {
    CorvexSG::MaterialApplication Application(SelectionKind kind = SelectionKind::Shape)
    {
        return {gathered, scene, nullptr, nullptr, {kind}, parts, merge, {}, data};
    }

    std::shared_ptr<GatheredMaterial> gathered = std::make_shared<GatheredMaterial>();
    StudioScene scene;
    std::vector<std::int32_t> parts;
    std::vector<float> data;
    bool merge = false;
};

template <typename Call>
Status StatusOf(const Call& call)
{
    try {
        call();
        return Status::Success;
    } catch (const CorvexMaterial::Error& error) {
        return error.Code();
    }
}

TEST_F(ShapeFixture, ApplyingSharesOneMaterialAndKeepsTheCoordinates)
{
    const auto plain = BoxShape({});
    const auto wrapped = BoxShape({});
    wrapped->ApplyMaterialWrapped(Application());
    plain->ApplyMaterial(Application());
    EXPECT_EQ(plain->Item().material.get(), &gathered->material);
    EXPECT_EQ(wrapped->Item().material.get(), &gathered->material);
    EXPECT_EQ(plain->Applied().coordinates, CoordinateMode::FromMesh);
    EXPECT_EQ(wrapped->Applied().coordinates, CoordinateMode::FromWrap);
    wrapped->ApplyMaterial(Application());
    EXPECT_EQ(wrapped->Applied().coordinates, CoordinateMode::FromWrap);
}

TEST_F(ShapeFixture, FilesOnlyKeepsTheShapesUseOfTextures)
{
    const auto shape = BoxShape({});
    gathered->material.TextureAlphaChannelUse = 3;
    gathered->material.AlphaIsTransparent = true;
    gathered->material.OverlayTranslucency = 12.5F;
    shape->ApplyMaterial(Application());
    gathered = std::make_shared<GatheredMaterial>();
    gathered->applyMode = ApplyMode::FilesOnly;
    gathered->material.Textures.overlay = "leaves.png";
    gathered->material.Specular = 44;
    shape->ApplyMaterial(Application());
    EXPECT_EQ(shape->Material().TextureAlphaChannelUse, 3);
    EXPECT_TRUE(shape->Material().AlphaIsTransparent);
    EXPECT_EQ(shape->Material().OverlayTranslucency, 12.5F);
    EXPECT_EQ(shape->Material().Textures.overlay, "leaves.png");
    EXPECT_EQ(shape->Material().Specular, 44);
}

TEST_F(ShapeFixture, PartsAndMissingMaterialsAreRefusedWithoutAChange)
{
    const auto shape = BoxShape({});
    const auto before = shape->Applied();
    EXPECT_EQ(StatusOf([&] { shape->ApplyMaterialWrapped(Application(SelectionKind::Faces)); }),
              Status::NotAvailable);
    gathered = nullptr;
    EXPECT_EQ(StatusOf([&] { shape->ApplyMaterialWrapped(Application()); }),
              Status::InvalidArgument);
    EXPECT_EQ(shape->Applied(), before);
}

TEST_F(ShapeFixture, MergingPointsKeepsTheSurface)
{
    const auto faceted = studio::WithFlatNormals(*BoxMesh());
    ASSERT_EQ(faceted->vertices.size(), 36U);
    StudioShape shape("Box", faceted, {});
    merge = true;
    shape.ApplyMaterial(Application());
    // Four corners on each of six sides: normals differ between sides only.
    EXPECT_EQ(shape.SharedMesh()->vertices.size(), 24U);
    ASSERT_EQ(shape.SharedMesh()->indices.size(), 36U);
    for (std::size_t corner = 0; corner < 36; ++corner) {
        EXPECT_EQ(shape.SharedMesh()->vertices[shape.SharedMesh()->indices[corner]].position,
                  faceted->vertices[faceted->indices[corner]].position);
    }
    const auto merged = shape.SharedMesh();
    shape.ApplyMaterial(Application());
    EXPECT_EQ(shape.SharedMesh(), merged);  // nothing left to do, nothing made anew
}

TEST_F(ShapeFixture, FlatOptionGivesEachTriangleItsOwnNormal)
{
    const auto shape = BoxShape({});
    shape->SetShapeOption(1);
    const auto& mesh = *shape->SharedMesh();
    for (std::size_t corner = 0; corner < mesh.indices.size(); ++corner) {
        const auto& vertex = mesh.vertices[mesh.indices[corner]];
        // Of a cube around the origin: outward, along one axis, on that side.
        float along = 0.0F;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            along += vertex.normal[axis] * vertex.position[axis];
        }
        EXPECT_FLOAT_EQ(along, 1.0F);
    }
    EXPECT_EQ(StatusOf([&] { shape->SetShapeOption(7); }), Status::InvalidArgument);
    shape->SetShapeOption(2);
    EXPECT_EQ(shape->SharedMesh()->vertices.size(), 8U);
}

TEST_F(ShapeFixture, MovingBackAndForthLeavesNoTrace)
{
    QMatrix4x4 placement;
    placement.translate(123.456F, -0.001F, 3.3F);
    const auto shape = BoxShape(placement);
    for (int round = 0; round < 10000; ++round) {
        shape->Move(0.0001F, 2);
        shape->Move(-0.0001F, 2);
    }
    EXPECT_EQ(shape->WorldFromMesh(), placement);
    shape->Move(2.0F, 1);
    EXPECT_NEAR(shape->WorldFromMesh()(1, 3), 1.999F, 1e-6F);
    EXPECT_EQ(StatusOf([&] { shape->Move(1.0F, 3); }), Status::InvalidArgument);
    shape->SetWorldFromMesh(placement);
    EXPECT_EQ(shape->WorldFromMesh(), placement);
}

TEST_F(ShapeFixture, MeshFileThatCannotBeReadKeepsTheShape)
{
    const CorvexTest::SampleFolder folder;
    const auto shape = BoxShape({});
    shape->LoadMeshFile(SCENE_TEST_DATA "/frames.x");
    const auto mesh = shape->SharedMesh();
    EXPECT_EQ(mesh->indices.size(), 6U);           // both frames in one mesh,
    EXPECT_FLOAT_EQ(mesh->bounds.maximum.x(), 5);  // each where its frame puts it
    for (const QString& file :
         {folder.PathOf("missing.x"), folder.Path(), folder.Write("empty.x", ""),
          folder.Write("words.x", "xof 0303txt 0032\nMesh { twelve; }"),
          folder.Write("other.x", "no mesh at all")}) {
        const std::string path = file.toStdString();
        EXPECT_THAT([&] { shape->LoadMeshFile(path); },
                    testing::ThrowsMessage<CorvexMaterial::Error>(testing::HasSubstr(path)));
        EXPECT_EQ(shape->SharedMesh(), mesh);
    }
}

TEST_F(ShapeFixture, SceneShowsOneShapeAloneAndRefusesForeignOnes)
{
    class ForeignShape : public CorvexSG::Shape {
        void ApplyMaterial(const CorvexSG::MaterialApplication&) override {}
        void ApplyMaterialWrapped(const CorvexSG::MaterialApplication&) override {}
        void LoadMeshFile(const std::string&) override {}
        void SetShapeOption(std::int32_t) override {}
        void Move(float, std::int32_t) override {}
    };
    const auto first = BoxShape({});
    const auto second = BoxShape({});
    studio::Selection selection;
    selection.Choose({second}, Qt::NoModifier);
    scene.MarkSelection(&selection);
    scene.SetShapes({first, second});
    studio::Frame both;
    scene.Fill(both);
    ASSERT_EQ(both.items.size(), 2U);
    EXPECT_FALSE(both.items[0].selected);
    EXPECT_TRUE(both.items[1].selected);
    scene.ShowShape(first);
    EXPECT_EQ(StatusOf([&] { scene.ShowShape(std::make_shared<ForeignShape>()); }),
              Status::InvalidArgument);
    EXPECT_EQ(scene.All(), StudioScene::Shapes{first});
    scene.ShowShape(nullptr);
    EXPECT_TRUE(scene.Extent().Empty());
}

}  // namespace
