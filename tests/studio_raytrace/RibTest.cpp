#include "studio/scene/ParametricMesh.h"
#include "tests/studio_raytrace/RaytraceRig.h"
#include "tests/studio_raytrace/RibReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

namespace {

using namespace StudioRaytraceTest;
using CorvexDB::udtMaterial;

const RibRequest* Find(const RibFile& file, const std::string& name)
{
    for (const RibRequest& request : file.requests) {
        if (request.name == name) {
            return &request;
        }
    }
    return nullptr;
}

std::size_t PlaceOf(const RibFile& file, const std::string& name)
{
    std::size_t place = 0;
    while (place < file.requests.size() && file.requests[place].name != name) {
        ++place;
    }
    return place;
}

class Rib : public testing::Test {
protected:
    RibFile Written(const Change& change)
    {
        const RibFile file = ReadRib(rig.RibText(SceneWith(Sphere(), change)));
        EXPECT_EQ(file.error, "");
        return file;
    }
    RaytraceRig rig;
};

TEST_F(Rib, SaysWhatPictureToMakeBeforeTheWorldBegins)
{
    const std::string text = rig.RibText(SceneWith(Sphere(), [](udtMaterial&) {}));
    EXPECT_EQ(text.rfind("##RenderMan RIB-Structure 1.1\n", 0), 0U);
    EXPECT_EQ(text.find("ScreenWindow"), std::string::npos);
    const RibFile file = ReadRib(text);
    ASSERT_EQ(file.error, "");
    ASSERT_LT(PlaceOf(file, "WorldBegin"), file.requests.size());
    for (const char* first : {"version", "Display", "Format", "Projection", "PixelSamples"}) {
        EXPECT_LT(PlaceOf(file, first), PlaceOf(file, "WorldBegin")) << first;
    }
    EXPECT_FLOAT_EQ(Find(file, "version")->numbers.at(0), 3.03F);
    EXPECT_EQ(Find(file, "Display")->strings.at(0), "scene.bmp");
    EXPECT_FLOAT_EQ(Find(file, "Projection")->arrays.at(0).at(0), 30.0F);
}

TEST_F(Rib, MeshListsAgreeWithEachOther)
{
    const RibFile file = Written([](udtMaterial& m) { m.WrapOrientationV = true; });
    const RibRequest* mesh = Find(file, "PointsPolygons");
    ASSERT_NE(mesh, nullptr);
    ASSERT_EQ(mesh->arrays.size(), 5U);
    const auto& [counts, corners, points, normals, places] = std::tie(
        mesh->arrays[0], mesh->arrays[1], mesh->arrays[2], mesh->arrays[3], mesh->arrays[4]);
    EXPECT_THAT(counts, testing::Each(3.0F));
    EXPECT_EQ(corners.size(), 3 * counts.size());
    EXPECT_EQ(points.size(), normals.size());
    EXPECT_EQ(places.size(), 2 * corners.size());
    EXPECT_LT(*std::max_element(corners.begin(), corners.end()),
              static_cast<float>(points.size() / 3));
    EXPECT_THAT(mesh->strings, testing::ElementsAre("P", "N", "facevarying float[2] st"));
}

struct Look {
    const char* name;
    Change change;
    const char* shader;
};

TEST_F(Rib, UsesTheStandardShadersOnly)
{
    const std::string image =
        rig.Image("картинка.png", [](int x, int) { return QColor(4 * x, 0, 0); });
    const std::vector<Look> looks{
        {"dull", [](udtMaterial&) {}, "matte"},
        {"shiny", [](udtMaterial& m) { m.Specular = 50; }, "plastic"},
        {"metallic",
         [](udtMaterial& m) {
             m.Specular = 50;
             m.RayTrace.Metallic = true;
         },
         "metal"},
        {"mirror", [&](udtMaterial& m) { m.Textures.environment = image; }, "shinymetal"},
        {"painted", [&](udtMaterial& m) { m.Textures.primary = image; }, "paintedplastic"},
        {"stock stone",
         [](udtMaterial& m) {
             m.RayTrace.MaterialType = 1;
             m.RayTrace.PredefinedType = 2;
         },
         "plastic"},
    };
    for (const Look& look : looks) {
        const RibFile file = Written(look.change);
        const RibRequest* surface = Find(file, "Surface");
        ASSERT_NE(surface, nullptr) << look.name;
        EXPECT_EQ(surface->strings.front(), look.shader) << look.name;
        for (const std::string& text : surface->strings) {
            EXPECT_EQ(text.find(".png"), std::string::npos) << "renderers want TIFF: " << text;
        }
    }
}

TEST_F(Rib, TransparencyAndBothSidesAreSaid)
{
    const RibFile file = Written([](udtMaterial& m) {
        m.Transparency = 75;
        m.DoubleSided = true;
    });
    EXPECT_THAT(Find(file, "Opacity")->arrays.at(0), testing::Each(testing::FloatEq(0.25F)));
    EXPECT_FLOAT_EQ(Find(file, "Sides")->numbers.at(0), 2.0F);
}

}  // namespace
