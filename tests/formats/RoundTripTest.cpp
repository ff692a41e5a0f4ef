#include "Amounts.h"
#include "Exchange.h"
#include "Formats.h"
#include "SampleFolder.h"
#include <CorvexMaterial/Status.h>

#include <map>

#include <sys/stat.h>

// Out into a format and in again: equal as far as the format can say it.

namespace {

using CorvexDB::udtMaterial;
using CorvexTest::Import;
using CorvexTest::Imported;
using studio::NamedMaterial;

struct FormatCase {
    const char* suffix;
    /// Takes away what the format has no place for.
    void (*reduce)(udtMaterial& material);
};

const udtMaterial kPlain;

void KeepOfRayTrace(udtMaterial& material, bool roughness)
{
    CorvexDB::cdtRayTraceMaterialAttributes kept;
    kept.Metallic = material.RayTrace.Metallic;
    kept.Reflection = material.RayTrace.Reflection;
    kept.Roughness = roughness ? material.RayTrace.Roughness : kept.Roughness;
    material.RayTrace = kept;
}

/// What no format has. Wraps are kept with tiles only, and tiles with a whole image only.
void ReduceForAll(udtMaterial& material)
{
    const bool hasImage =
        !(material.Textures.primary + material.Textures.overlay + material.Textures.alpha +
          material.Textures.bump + material.Textures.specular)
             .empty();
    const bool tiles = material.Wrap == CorvexDB::WrapType::Flat &&
                       material.FlatWrap == CorvexDB::FlatWrapType::TileByUnit &&
                       material.TilesPerUnit > 1.0F &&
                       material.Placement == CorvexDB::TexturePlacement();
    if (!tiles || !hasImage) {
        material.Wrap = kPlain.Wrap;
        material.FlatWrap = kPlain.FlatWrap;
        material.TilesPerUnit = kPlain.TilesPerUnit;
    }
    if (!hasImage) {
        material.Placement = {};
        material.WrapOrientationU = material.WrapOrientationV = false;
    }
    material.TextureAlphaChannelUse = 0;
    material.AlphaIsTransparent = false;
    material.Plugin.clear();
    material.PluginParameters.clear();
    material.CustomFields = {};
    if (material.Color == 0) {
        material.Emissive = 0;
    }
}

void ReduceForMtl(udtMaterial& material)
{
    ReduceForAll(material);
    KeepOfRayTrace(material, true);
    material.DoubleSided = false;
    material.AlphaTest = material.AlphaTestReference = 0;
    material.OverlayTranslucency =
        material.Textures.overlay.empty() ? kPlain.OverlayTranslucency : 0.0F;
    material.Ambient = material.Color == 0 ? 0 : material.Ambient;
    if (material.Color == 0 && !material.Textures.primary.empty()) {
        material.Color = 0xFFFFFF;
    }
}

void ReduceForGltf(udtMaterial& material)
{
    auto& files = material.Textures;
    files = {files.primary, "", "", "", "", ""};
    ReduceForAll(material);
    KeepOfRayTrace(material, false);
    material.Ambient = kPlain.Ambient;
    material.OverlayTranslucency = kPlain.OverlayTranslucency;
    const bool above = material.AlphaTest == 4 && material.AlphaTestReference < 255;
    if ((!above && material.AlphaTest != 6) || material.Transparency > 0) {
        material.AlphaTest = material.AlphaTestReference = 0;
    } else if (above) {
        material.AlphaTest = 6;
        ++material.AlphaTestReference;
    }
}

void ReduceForMtlx(udtMaterial& material)
{
    material.Textures.environment.clear();
    ReduceForAll(material);
    KeepOfRayTrace(material, true);
    material.Ambient = kPlain.Ambient;
    material.DoubleSided = false;
    material.AlphaTest = material.AlphaTestReference = 0;
    if (material.Textures.overlay.empty()) {
        material.OverlayTranslucency = kPlain.OverlayTranslucency;
    }
    if (!material.Textures.specular.empty() && material.Specular == 0) {
        material.Specular = 100;  // the same: the map alone decides
    }
}

/// Images repeat, so a whole image aside is the same place.
void ExpectSameOffset(float is, float should)
{
    const float apart = is - should;
    EXPECT_NEAR(apart, std::round(apart), 2e-6F);
}

/// A negative scale and a flip are the same thing.
void ExpectSamePlace(const udtMaterial& material, const udtMaterial& expected)
{
    const studio::ImageWindow is = studio::WindowOf(material);
    const studio::ImageWindow should = studio::WindowOf(expected);
    ExpectSameOffset(is.offsetU, should.offsetU);
    ExpectSameOffset(is.offsetV, should.offsetV);
    EXPECT_NEAR(is.scaleU, should.scaleU, 2e-6F);
    EXPECT_NEAR(is.scaleV, should.scaleV, 2e-6F);
}

void ExpectSame(udtMaterial material, udtMaterial expected)
{
    ExpectSamePlace(material, expected);
    for (udtMaterial* each : {&material, &expected}) {
        each->Placement = {};
        each->WrapOrientationU = each->WrapOrientationV = false;
    }
    EXPECT_EQ(studio::JsonOfMaterial(material, "/"), studio::JsonOfMaterial(expected, "/"));
}

class Samples {
public:
    explicit Samples(const QString& folder) : m_folder(folder.toStdString()) {}

    std::vector<NamedMaterial> Make()
    {
        std::vector<NamedMaterial> samples{{"Plain", {}}, {"Plain", {}}, {"", {}}};
        for (int number = 0; number < 300; ++number) {
            // The names tell each format's special characters.
            samples.push_back({"a<&\"#\\ \u00e9 " + std::to_string(number), Random()});
        }
        return samples;
    }

private:
    int Below(int limit) { return static_cast<int>(m_engine() % static_cast<unsigned>(limit)); }
    bool Now() { return Below(3) == 0; }
    float Fraction() { return static_cast<float>(Below(101)) / 100.0F; }

    std::string File(const char* name)
    {
        return Now() ? m_folder + "/pictures/" + name + std::to_string(Below(3)) + " %20#.png"
                     : std::string();
    }

    udtMaterial Random()
    {
        udtMaterial material;
        material.Color = Now() ? Below(2) * 0xFFFFFF : Below(0x1000000);
        material.Ambient = Below(101);
        material.Emissive = Now() ? Below(101) : 0;
        material.Specular = Below(101);
        material.Transparency = Now() ? Below(101) : 0;
        material.DoubleSided = Now();
        material.AlphaTest = Below(8);
        material.AlphaTestReference = Below(256);
        material.OverlayTranslucency = static_cast<float>(Below(101));
        material.Textures = {File("Primary"), File("Overlay"),  File("Alpha"),
                             File("Bump"),    File("Specular"), File("Environment")};
        Place(material);
        material.RayTrace.Roughness = static_cast<float>(1 + Below(10));
        material.RayTrace.Reflection = static_cast<float>(Below(11));
        material.RayTrace.Metallic = Now();
        material.RayTrace.ColorPattern = Below(3);
        material.Plugin = Now() ? "Wood" : "";
        material.CustomFields[2] = Now() ? "a field" : "";
        return material;
    }

    void Place(udtMaterial& material)
    {
        material.WrapOrientationU = Now();
        material.WrapOrientationV = Now();
        material.Wrap = static_cast<CorvexDB::WrapType>(Below(3));
        material.TilesPerUnit = static_cast<float>(1 + Below(4));
        if (Now()) {
            const float sign = Now() ? -1.0F : 1.0F;
            material.Placement = {Fraction() / 2.0F, Fraction() / 2.0F, sign * 0.5F, Fraction()};
        }
    }

    std::string m_folder;
    std::mt19937 m_engine{20261123};
};

class RoundTrip : public testing::TestWithParam<FormatCase> {
protected:
    [[nodiscard]] std::string File(const char* name) const
    {
        return m_folder.PathOf(name).toStdString() + "." + GetParam().suffix;
    }

    CorvexTest::SampleFolder m_folder;
};

TEST_P(RoundTrip, KeepsWhatTheFormatCanSay)
{
    const std::vector<NamedMaterial> out = Samples(m_folder.Path()).Make();
    studio::Report exported;
    studio::ExportMaterials(File("library"), out, exported);
    const Imported in = Import(File("library"));
    ASSERT_EQ(in.materials.size(), out.size());
    for (std::size_t index = 0; index < out.size(); ++index) {
        SCOPED_TRACE(out[index].name + ", number " + std::to_string(index));
        udtMaterial expected = out[index].material;
        GetParam().reduce(expected);
        ExpectSame(in.materials[index].material, expected);
        if (index >= 3) {
            EXPECT_EQ(in.materials[index].name, out[index].name);
        }
        if (HasFailure()) {
            break;
        }
    }
}

TEST_P(RoundTrip, NeverHidesALoss)
{
    // Whatever differs after the way out and in must have been announced on the way out.
    const std::vector<NamedMaterial> out = Samples(m_folder.Path()).Make();
    for (std::size_t index = 3; index < 60; ++index) {
        studio::Report exported;
        studio::ExportMaterials(File("one"), std::span(&out[index], 1), exported);
        udtMaterial reduced = out[index].material;
        GetParam().reduce(reduced);
        const udtMaterial& whole = out[index].material;
        if (std::tie(reduced.Textures, reduced.Ambient, reduced.DoubleSided, reduced.Plugin,
                     reduced.CustomFields, reduced.RayTrace) !=
            std::tie(whole.Textures, whole.Ambient, whole.DoubleSided, whole.Plugin,
                     whole.CustomFields, whole.RayTrace)) {
            EXPECT_GT(exported.Count(studio::Outcome::Dropped), 0U) << out[index].name;
        }
    }
}

TEST_P(RoundTrip, KnowsTheAlphaChannelOfEveryTypeAndReadsNoPipe)
{
    const QString translucent =
        m_folder.Write("glass.tga", QByteArray::fromHex("000002000000000000000000010001002008"
                                                        "0000ff80"));
    const QString pipe = m_folder.PathOf("pipe.tga");
    ASSERT_EQ(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    std::vector<NamedMaterial> out{{"Glass", {}}, {"Pipe", {}}};
    out[0].material.Textures.primary = translucent.toStdString();
    out[1].material.Textures.primary = pipe.toStdString();
    studio::Report report;
    studio::ExportMaterials(File("alpha"), out, report);
    EXPECT_EQ(CorvexTest::OutcomeFor(report, "Glass", "Alpha channel use"), "mapped");
    EXPECT_EQ(CorvexTest::OutcomeFor(report, "Pipe", "Alpha channel use"), "-");
}

/// A case for every format that is written, which does not start without a reduction.
std::vector<FormatCase> WrittenFormats()
{
    const std::map<std::string, void (*)(udtMaterial&)> reductions{
        {"mtl", ReduceForMtl}, {"gltf", ReduceForGltf}, {"mtlx", ReduceForMtlx}};
    std::vector<FormatCase> cases;
    for (const studio::Format& format : studio::Formats()) {
        if (format.write != nullptr) {
            cases.push_back({format.suffix, reductions.at(format.suffix)});
        }
    }
    return cases;
}

INSTANTIATE_TEST_SUITE_P(Formats, RoundTrip, testing::ValuesIn(WrittenFormats()),
                         [](const auto& row) { return std::string(row.param.suffix); });

}  // namespace
