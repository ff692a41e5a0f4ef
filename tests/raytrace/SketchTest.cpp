#include "raytrace/MaterialSketch.h"
#include "record/Looks.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>

namespace {

using namespace CorvexMaterial;

constexpr int kSide = 48;
using Picture = std::vector<std::uint32_t>;

Picture Sketched(const CorvexDB::udtMaterial& material)
{
    return SketchMaterial(material, kSide, SketchQuality::Quick);
}

/// Mean difference of the colour bytes.
double Difference(const Picture& a, const Picture& b)
{
    double sum = 0.0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        for (const unsigned shift : {0U, 8U, 16U}) {
            const auto byte = [shift](std::uint32_t pixel) {
                return static_cast<int>((pixel >> shift) & 0xFFU);
            };
            sum += std::abs(byte(a[i]) - byte(b[i]));
        }
    }
    return sum / static_cast<double>(3 * a.size());
}

void ExpectAllDifferent(const std::vector<CorvexDB::udtMaterial>& materials, double least)
{
    std::vector<Picture> pictures;
    for (const auto& material : materials) {
        pictures.push_back(Sketched(material));
        for (std::size_t other = 0; other + 1 < pictures.size(); ++other) {
            EXPECT_GT(Difference(pictures[other], pictures.back()), least)
                << other << " and " << pictures.size() - 1;
        }
    }
}

TEST(Sketch, EveryPredefinedMaterialLooksDifferent)
{
    std::vector<CorvexDB::udtMaterial> materials;
    for (std::int32_t type = 0; type < 5; ++type) {
        for (std::int32_t i = 0; i < static_cast<int>(PredefinedLooks(type).size()); ++i) {
            CorvexDB::udtMaterial material;
            material.RayTrace.MaterialType = 1;
            material.RayTrace.PredefinedType = type;
            material.RayTrace.PreDefinedMaterial = i;
            materials.push_back(material);
        }
    }
    ExpectAllDifferent(materials, 0.1);
}

TEST(Sketch, EveryPatternLooksDifferent)
{
    std::vector<CorvexDB::udtMaterial> colours;
    for (std::int32_t pattern = 0; pattern < 24; ++pattern) {
        CorvexDB::udtMaterial material;
        material.RayTrace.ColorPattern = pattern;
        material.RayTrace.ColorPatternColor = {{{1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 0, 1}}};
        colours.push_back(material);
    }
    ExpectAllDifferent(colours, 2.0);
    std::vector<CorvexDB::udtMaterial> normals;
    for (std::int32_t pattern = 0; pattern < 15; ++pattern) {
        CorvexDB::udtMaterial material;
        material.Specular = 80;
        material.RayTrace.NormalPattern = pattern;
        normals.push_back(material);
    }
    ExpectAllDifferent(normals, 0.1);
}

TEST(Sketch, EverySliderOfTheFinishShows)
{
    CorvexDB::udtMaterial plain;
    plain.Specular = 60;
    plain.Color = 0x6080A0;
    const Picture before = Sketched(plain);
    using Record = CorvexDB::cdtRayTraceMaterialAttributes;
    for (const auto field : {&Record::Brilliance, &Record::Reflection, &Record::Roughness,
                             &Record::IridescenceFactor}) {
        CorvexDB::udtMaterial other = plain;
        other.RayTrace.*field = 10.0F;
        EXPECT_GT(Difference(before, Sketched(other)), 0.5);
    }
    CorvexDB::udtMaterial metallic = plain;
    metallic.RayTrace.Metallic = true;
    EXPECT_GT(Difference(before, Sketched(metallic)), 0.05);
}

TEST(Sketch, DrawsAnyRecordAtAnySize)
{
    CorvexDB::udtMaterial material;
    auto& record = material.RayTrace;
    record.ColorPattern = 77;
    record.NormalPattern = -5;
    record.Brilliance = std::numeric_limits<float>::quiet_NaN();
    record.NormalScale = std::numeric_limits<float>::infinity();
    record.ColorPatternColor[0].red = std::numeric_limits<float>::quiet_NaN();
    material.Transparency = -4;
    material.Specular = 2000000;
    for (const int side : {1, 2, 33}) {
        const Picture picture = SketchMaterial(material, side, SketchQuality::Fine);
        ASSERT_EQ(picture.size(), static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
        EXPECT_EQ(picture.front() >> 24U, 0xFFU);
    }
    record.MaterialType = 1;
    record.PredefinedType = 9;
    EXPECT_EQ(Sketched(material).size(), static_cast<std::size_t>(kSide * kSide));
}

}  // namespace
