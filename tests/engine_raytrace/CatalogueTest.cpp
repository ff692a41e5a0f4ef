// Every stock material and every pattern, many in one run.

#include "SphereGrid.h"
#include <CorvexMaterial/Looks.h>

namespace {

using namespace StudioRaytraceTest;
using namespace CorvexMaterial;
using CorvexDB::udtMaterial;

const int kCell = qEnvironmentVariableIsSet("CORVEX_PICTURES") ? 96 : 64;

/// Mean over pixels and channels.
double Difference(const QImage& one, const QImage& other)
{
    double sum = 0.0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            sum += Distance(one.pixel(x, y), other.pixel(x, y));
        }
    }
    return sum / (one.width() * one.height());
}

bool IsBlank(const QImage& picture)
{
    std::set<QRgb> colours;
    for (int i = 0; i < picture.width() * picture.height(); ++i) {
        colours.insert(picture.pixel(i % picture.width(), i / picture.width()));
    }
    return colours.size() < 3;
}

/// The middles of the spheres as POV-Ray shows them. It may complain of its include files alone.
std::vector<QImage> Drawn(RaytraceRig& rig, const SphereGrid& contacts, const char* file)
{
    static const QRegularExpression kOwn("scene\\.pov.*(Warning|Error)|Parse Error");
    const Raytraced result = rig.Raytrace(contacts.Scene(), false);
    EXPECT_FALSE(result.picture.isNull() || result.messages.contains(kOwn))
        << result.messages.right(3000).toStdString();
    Keep(result.picture, file);
    std::vector<QImage> middles;
    for (std::size_t i = 0; i < contacts.materials.size(); ++i) {
        const int aside = kCell / 4;
        middles.push_back(
            result.picture.copy(contacts.Cell(i).adjusted(aside, aside, -aside, -aside)));
    }
    return middles;
}

/// Each entry must look other than what the reference has in the same place, for at two places the
/// same does not look the same.
std::vector<QImage> CheckContacts(RaytraceRig& rig, const SphereGrid& contacts,
                                  const SphereGrid& references, const char* file)
{
    const auto others = Drawn(rig, references, file);
    const auto pictures = Drawn(rig, contacts, file);
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        EXPECT_FALSE(IsBlank(pictures[i])) << "entry " << i;
        EXPECT_GT(Difference(pictures[i], others[i]), 0.8)
            << "entry " << i << " looks like its reference";
    }
    return pictures;
}

/// How far two lights are apart in hue, whatever their strength.
double HueDifference(Rgb one, Rgb other)
{
    const auto whole = [](Rgb light) { return light.red + light.green + light.blue + 1.0e-6F; };
    const Rgb a = one * (1.0F / whole(one));
    const Rgb b = other * (1.0F / whole(other));
    return std::abs(a.red - b.red) + std::abs(a.green - b.green) + std::abs(a.blue - b.blue);
}

/// What stands for a texture has its colour; of a metal at least whether it has one, for it mirrors
/// what is around.
void ExpectColourOf(const PredefinedLook& row, const QImage& picture)
{
    const Rgb wanted = LightOf(ColourOfHex(row.colour));
    const QRgb mean =
        picture.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixel(0, 0);
    const Rgb drawn = LightOf(MakeColour({qRed(mean), qGreen(mean), qBlue(mean)}));
    const Rgb grey{1.0F, 1.0F, 1.0F};
    if (row.clearness > 0.0F) {
        return;  // what is behind it is drawn too
    }
    if (row.type == PredefinedType::Metal && HueDifference(wanted, grey) > 0.1) {
        EXPECT_GT(HueDifference(drawn, grey), 0.04) << row.name;
    } else {
        EXPECT_LT(HueDifference(drawn, wanted), 0.29) << row.name;
    }
    if (row.type != PredefinedType::Metal) {
        EXPECT_NEAR(qGray(mean), qGray(row.colour), 45) << row.name;
    }
}

/// Every entry in the place of the next.
SphereGrid Rotated(SphereGrid contacts)
{
    std::rotate(contacts.materials.rbegin(), contacts.materials.rbegin() + 1,
                contacts.materials.rend());
    return contacts;
}

TEST(Catalogue, EveryPredefinedMaterialIsAPictureOfItsOwn)
{
    SphereGrid contacts;
    contacts.cell = kCell;
    std::vector<PredefinedLook> rows;
    for (int type = 0; type < 5; ++type) {
        for (const PredefinedLook& row : PredefinedLooks(type)) {
            contacts.materials.push_back({.RayTrace = {.MaterialType = 1,
                                                       .PredefinedType = type,
                                                       .PreDefinedMaterial = row.position}});
            rows.push_back(row);
        }
    }
    ASSERT_EQ(rows.size(), 80U);
    RaytraceRig rig;
    const auto pictures =
        CheckContacts(rig, contacts, Rotated(contacts), "raytrace-predefined.png");
    for (std::size_t i = 0; i < rows.size(); ++i) {
        ExpectColourOf(rows[i], pictures[i]);
    }
}

TEST(Catalogue, EveryPatternIsAPictureOfItsOwn)
{
    SphereGrid contacts;
    contacts.cell = kCell;
    contacts.columns = 8;
    for (int i = 0; i <= 23; ++i) {
        contacts.materials.push_back(
            {.RayTrace = {.ColorPattern = i,
                          .ColorPatternColor = {{{0.9F, 0.2F, 0.1F, 0.0F},
                                                 {1.0F, 0.9F, 0.5F, 0.0F},
                                                 {0.1F, 0.4F, 0.7F, 0.0F},
                                                 {0.05F, 0.1F, 0.2F, 0.0F}}}}});
    }
    for (int i = 0; i <= 14; ++i) {
        contacts.materials.push_back(
            {.Color = 0x60A0D0, .Specular = 60, .RayTrace = {.NormalPattern = i}});
    }
    RaytraceRig rig;
    CheckContacts(rig, contacts, Rotated(contacts), "raytrace-patterns.png");
}

TEST(Catalogue, EverySliderChangesThePicture)
{
    using Attributes = CorvexDB::cdtRayTraceMaterialAttributes;
    struct Row {
        std::int32_t colours;  ///< pattern
        std::int32_t normals;  ///< pattern
        float film;
        float Attributes::*slider;
        float position;
    };
    const Row rows[] = {
        {0, 0, 0.0F, &Attributes::Brilliance, 10.0F},
        {0, 0, 0.0F, &Attributes::Reflection, 8.0F},
        {0, 0, 0.0F, &Attributes::Roughness, 10.0F},
        {0, 0, 0.0F, &Attributes::Roughness, 1.0F},
        {0, 0, 0.0F, &Attributes::IridescenceFactor, 10.0F},
        {0, 0, 10.0F, &Attributes::IridescenceThickness, 9.0F},
        {0, 0, 10.0F, &Attributes::IridescenceTurbulence, 0.0F},
        {12, 0, 0.0F, &Attributes::ColorPatternFrequency, 4.0F},
        {12, 0, 0.0F, &Attributes::ColorPatternTurbulence, 8.0F},
        {0, 1, 0.0F, &Attributes::NormalScale, 0.0F},
        {0, 3, 0.0F, &Attributes::NormalDepth, 10.0F},
        {0, 3, 0.0F, &Attributes::NormalPatternTurbulence, 5.0F},
        {0, 3, 0.0F, &Attributes::NormalPatternFrequency, 6.0F},
    };
    SphereGrid contacts;
    contacts.cell = kCell;
    contacts.columns = 4;
    udtMaterial plain{.Color = 0x3070C0, .Specular = 70};
    plain.RayTrace.ColorPatternColor[1] = {0.0F, 0.2F, 0.9F, 0.0F};
    SphereGrid references = contacts;
    for (const Row& row : rows) {
        udtMaterial material = plain;
        material.RayTrace.ColorPattern = row.colours;
        material.RayTrace.NormalPattern = row.normals;
        material.RayTrace.IridescenceFactor = row.film;
        references.materials.push_back(material);
        material.RayTrace.*row.slider = row.position;
        contacts.materials.push_back(material);
    }
    references.materials.push_back(plain);
    contacts.materials.push_back(plain);
    contacts.materials.back().RayTrace.Metallic = true;
    RaytraceRig rig;
    CheckContacts(rig, contacts, references, "raytrace-finish.png");
}

}  // namespace
