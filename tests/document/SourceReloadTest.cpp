#include "SourceReload.h"

#include "ParametricMesh.h"
#include "Testing.h"

namespace {

using studio::ShapeState;
using testing::ElementsAre;
using testing::IsEmpty;

ShapeState Ball(const char* name, std::int32_t specular = 0)
{
    CorvexDB::udtMaterial material;
    material.Specular = specular;
    ShapeState shape;
    shape.name = name;
    shape.mesh = studio::SphereMesh(1.0F);
    shape.applied = studio::WholeMaterial(material);
    return shape;
}

TEST(SourceReload, EqualNamesKeepTheirOrderAndShapesWhatTheyWereGiven)
{
    studio::SceneContent scene;
    scene.shapes = {Ball("Gone", 1), Ball("Wheel", 2), Ball("Wheel", 3)};
    scene.shapes[2].moved = {0.0, 5.0, 0.0};
    scene.shapes[2].option = studio::ShapeOption::Flat;
    scene.shapes[2].applied.coordinates = CorvexSG::CoordinateMode::FromWrap;
    scene.selection = {2, 0};
    std::vector<ShapeState> read{Ball("Wheel"), Ball("Wheel"), Ball("Wheel")};
    read[0].mesh = studio::SphereMesh(2.0F);
    read[1].placement.translate(1.0F, 0.0F, 0.0F);
    read[0].applied.coordinates = CorvexSG::CoordinateMode::FromWrap;

    const auto reloaded = studio::Reloaded(scene, read, {{"/model.obj", 1, 2}, {}});
    const auto& shapes = reloaded.content.shapes;
    const auto specularOf = [&shapes](std::size_t place) {
        return shapes.at(place).applied.gathered->material.Specular;
    };
    EXPECT_THAT((std::array{specularOf(0), specularOf(1), specularOf(2)}), ElementsAre(2, 3, 1));
    EXPECT_EQ(shapes[0].mesh, read[0].mesh);
    EXPECT_EQ(shapes[0].applied.coordinates, CorvexSG::CoordinateMode::FromWrap)
        << "the mesh has lost its own";
    EXPECT_EQ(shapes[1].mesh, scene.shapes[2].mesh) << "nothing to be saved again";
    EXPECT_EQ(shapes[1].moved[1], 5.0);
    EXPECT_EQ(shapes[1].placement(0, 3), 1.0F);
    EXPECT_EQ(shapes[1].option, studio::ShapeOption::Flat);
    EXPECT_EQ(shapes[1].applied.coordinates, CorvexSG::CoordinateMode::FromWrap);
    EXPECT_THAT(reloaded.content.selection, ElementsAre(1, 2));
    EXPECT_THAT(reloaded.renamed, ElementsAre(std::pair("Gone", "Wheel")));
    EXPECT_THAT(reloaded.added, IsEmpty());
    EXPECT_THAT(reloaded.removed, IsEmpty());
    EXPECT_EQ(reloaded.content.source.path, "/model.obj");
}

}  // namespace
