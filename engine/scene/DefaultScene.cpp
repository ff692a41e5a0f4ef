#include "DefaultScene.h"

#include "ParametricMesh.h"
#include <CorvexMaterial/AttributeText.h>

#include <QString>

#include <array>
#include <tuple>

namespace studio {

namespace {

using CorvexMaterial::MakeColour;

// Outside upward, over the lip, inside down again, so that one can look into it.
constexpr std::array kVaseProfile{
    QVector2D(0.00F, 0.00F), QVector2D(0.30F, 0.00F), QVector2D(0.46F, 0.03F),
    QVector2D(0.50F, 0.12F), QVector2D(0.66F, 0.42F), QVector2D(0.80F, 0.80F),
    QVector2D(0.78F, 1.18F), QVector2D(0.58F, 1.55F), QVector2D(0.36F, 1.86F),
    QVector2D(0.31F, 2.10F), QVector2D(0.38F, 2.32F), QVector2D(0.53F, 2.46F),
    QVector2D(0.55F, 2.50F), QVector2D(0.51F, 2.50F), QVector2D(0.34F, 2.33F),
    QVector2D(0.26F, 2.10F), QVector2D(0.31F, 1.86F), QVector2D(0.53F, 1.52F),
    QVector2D(0.72F, 1.15F), QVector2D(0.70F, 0.70F), QVector2D(0.40F, 0.24F),
    QVector2D(0.00F, 0.16F)};

// Points stand closer towards the edge, so that the curve does not swing up before it.
constexpr std::array kPlateProfile{
    QVector2D(0.00F, -0.16F),  QVector2D(1.40F, -0.16F), QVector2D(2.30F, -0.16F),
    QVector2D(2.70F, -0.16F),  QVector2D(2.82F, -0.16F), QVector2D(2.88F, -0.155F),
    QVector2D(2.93F, -0.13F),  QVector2D(2.95F, -0.08F), QVector2D(2.93F, -0.03F),
    QVector2D(2.88F, -0.005F), QVector2D(2.82F, 0.00F),  QVector2D(2.70F, 0.00F),
    QVector2D(2.30F, 0.00F),   QVector2D(1.40F, 0.00F),  QVector2D(0.00F, 0.00F)};

std::shared_ptr<const Mesh> Vase()
{
    return LatheMesh(kVaseProfile, {56, 84});
}
std::shared_ptr<const Mesh> Plate()
{
    return LatheMesh(kPlateProfile, {72, 42});
}
std::shared_ptr<const Mesh> Ball()
{
    return SphereMesh(0.62F);
}
std::shared_ptr<const Mesh> GlassBall()
{
    return SphereMesh(0.40F);
}
std::shared_ptr<const Mesh> KnotRing()
{
    return KnotMesh({2, 3, 0.86F, 0.19F});
}
std::shared_ptr<const Mesh> Cube()
{
    return RoundedCubeMesh(0.52F, 0.11F);
}

struct Look {
    const char* material;  // of the shipped library; what follows is for want of it
    CorvexMaterial::ColourBytes colour;
    const char* attributes;  // word=value
};

struct ShapeRow {
    const char* name;
    std::shared_ptr<const Mesh> (*mesh)();
    std::array<float, 3> position;
    float yawDegrees;
    Look look;
};

constexpr std::array kShapes{
    ShapeRow{"Plate",
             Plate,
             {0.0F, 0.0F, 0.0F},
             0.0F,
             {"Black Marble", {150, 143, 135}, "specular=10 emissive=0"}},
    ShapeRow{"Vase",
             Vase,
             {-1.15F, 0.0F, -0.75F},
             0.0F,
             {"Celadon", {36, 146, 148}, "specular=70 emissive=4"}},
    ShapeRow{"Knot",
             KnotRing,
             {1.05F, 1.08F, -0.95F},
             24.0F,
             {"Gold", {222, 156, 76}, "specular=85 emissive=4"}},
    ShapeRow{"Ball",
             Ball,
             {0.10F, 0.62F, 0.85F},
             0.0F,
             {"Ruby", {204, 38, 44}, "specular=90 emissive=4"}},
    ShapeRow{"Cube",
             Cube,
             {1.75F, 0.52F, 0.75F},
             28.0F,
             {"Terrazzo", {70, 114, 190}, "specular=45 emissive=4"}},
    ShapeRow{"Glass ball",
             GlassBall,
             {-1.25F, 0.40F, 1.35F},
             0.0F,
             {"Cobalt Glass", {96, 205, 196}, "specular=100 transparency=48 emissive=6"}},
};

AppliedMaterial MaterialOf(const Look& look, const MaterialNamed& library)
{
    if (library) {
        if (auto found = library(look.material)) {
            return WholeMaterial(*std::move(found), CorvexSG::CoordinateMode::FromWrap);
        }
    }
    CorvexDB::udtMaterial material;
    material.Color = MakeColour(look.colour);
    for (const QString& part : QString::fromLatin1(look.attributes).split(u' ')) {
        const auto* row = CorvexMaterial::FindAttribute(part.section(u'=', 0, 0).toStdString());
        std::ignore =
            CorvexMaterial::SetText(material, row->attribute, part.section(u'=', 1).toStdString());
    }
    return WholeMaterial(std::move(material));
}

}  // namespace

StudioScene::Shapes DefaultShapes(const MaterialNamed& library)
{
    StudioScene::Shapes shapes;
    for (const ShapeRow& row : kShapes) {
        AppliedMaterial applied = MaterialOf(row.look, library);
        applied.identity = std::make_shared<SceneMaterial>(SceneMaterial{row.look.material, {}});
        auto shape = std::make_shared<StudioShape>(row.name, row.mesh(), std::move(applied));
        QMatrix4x4 worldFromMesh;
        worldFromMesh.translate(row.position[0], row.position[1], row.position[2]);
        worldFromMesh.rotate(row.yawDegrees, 0.0F, 1.0F, 0.0F);
        shape->SetWorldFromMesh(worldFromMesh);
        shapes.push_back(std::move(shape));
    }
    return shapes;
}

Camera DefaultCamera()
{
    Camera camera;
    camera.target = {0.05F, 0.72F, 0.0F};
    camera.yawDegrees = 22.0F;
    camera.pitchDegrees = 19.0F;
    camera.distance = 9.4F;
    camera.fovDegrees = 32.0F;
    return camera;
}

}  // namespace studio
