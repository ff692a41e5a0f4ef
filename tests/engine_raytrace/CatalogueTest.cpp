// Every stock material and every pattern, many in one run.

#include "SphereGrid.h"
#include "Testing.h"
#include <CorvexMaterial/Looks.h>

namespace {

using namespace StudioRaytraceTest;
using namespace CorvexMaterial;
using CorvexDB::udtMaterial;

const int kCell = qEnvironmentVariableIsSet("CORVEX_PICTURES") ? 96 : 64;
constexpr std::size_t kStep = kSanitized ? 5 : 1;  ///< of the entries, those to draw

/// Of the middle of two cells, mean over pixels and channels.
double Difference(const QImage& one, const QImage& other)
{
    double sum = 0.0;
    int count = 0;
    for (int y = kCell / 4; y < 3 * kCell / 4; ++y) {
        for (int x = kCell / 4; x < 3 * kCell / 4; ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            sum += std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) +
                   std::abs(qBlue(a) - qBlue(b));
            count += 3;
        }
    }
    return sum / count;
}

bool IsBlank(const QImage& cell)
{
    std::set<QRgb> colours;
    for (int i = kCell / 4; i < 3 * kCell / 4; ++i) {
        for (int k = kCell / 4; k < 3 * kCell / 4; ++k) {
            colours.insert(cell.pixel(i, k));
        }
    }
    return colours.size() < 3;
}

/// Complaints about a file of ours; the include files have their own.
QStringList OwnComplaints(const QString& messages)
{
    return messages.split(u'\n').filter(
        QRegularExpression(QStringLiteral("scene\\.pov.*(Warning|Error)|Parse Error")));
}

QRgb MeanOf(const QImage& cell)
{
    return cell.copy(kCell / 4, kCell / 4, kCell / 2, kCell / 2)
        .scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .pixel(0, 0);
}

QImage Drawn(RaytraceRig& rig, const SphereGrid& contacts)
{
    const Raytraced result = rig.Raytrace(contacts.Scene(), false);
    EXPECT_FALSE(result.picture.isNull()) << result.messages.right(3000).toStdString();
    EXPECT_TRUE(OwnComplaints(result.messages).isEmpty())
        << OwnComplaints(result.messages).join('\n').toStdString();
    return result.picture;
}

SphereGrid Fewer(SphereGrid contacts)
{
    std::vector<udtMaterial> drawn;
    for (std::size_t i = 0; i < contacts.materials.size(); i += kStep) {
        drawn.push_back(contacts.materials[i]);
    }
    contacts.materials = std::move(drawn);
    return contacts;
}

/// Each entry must look other than what the reference has in the same place, for at two places the
/// same does not look the same.
QImage CheckContacts(RaytraceRig& rig, const SphereGrid& all, const SphereGrid& allReferences,
                     const char* file)
{
    const SphereGrid contacts = Fewer(all);
    const QImage picture = Drawn(rig, contacts);
    const QImage references = Drawn(rig, Fewer(allReferences));
    Keep(picture, file);
    for (std::size_t i = 0; i < contacts.materials.size(); ++i) {
        const QImage cell = picture.copy(contacts.Cell(i));
        EXPECT_FALSE(IsBlank(cell)) << "entry " << i;
        EXPECT_GT(Difference(cell, references.copy(contacts.Cell(i))), 0.8)
            << "entry " << i << " looks like its reference";
    }
    return picture;
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
void ExpectColourOf(const PredefinedLook& row, const QImage& cell)
{
    const Rgb wanted = LightOf(ColourOfHex(row.colour));
    const QRgb mean = MeanOf(cell);
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
            udtMaterial material;
            material.RayTrace.MaterialType = 1;
            material.RayTrace.PredefinedType = type;
            material.RayTrace.PreDefinedMaterial = row.position;
            contacts.materials.push_back(material);
            rows.push_back(row);
        }
    }
    ASSERT_EQ(rows.size(), 80U);
    RaytraceRig rig;
    const QImage picture =
        CheckContacts(rig, contacts, Rotated(contacts), "raytrace-predefined.png");
    for (std::size_t i = 0; i < rows.size(); i += kStep) {
        ExpectColourOf(rows[i], picture.copy(contacts.Cell(i / kStep)));
    }
}

TEST(Catalogue, EveryPatternIsAPictureOfItsOwn)
{
    SphereGrid contacts;
    contacts.cell = kCell;
    contacts.columns = 8;
    for (int i = 0; i <= 23; ++i) {
        udtMaterial material;
        material.RayTrace.ColorPattern = i;
        material.RayTrace.ColorPatternColor = {{{0.9F, 0.2F, 0.1F, 0.0F},
                                                {1.0F, 0.9F, 0.5F, 0.0F},
                                                {0.1F, 0.4F, 0.7F, 0.0F},
                                                {0.05F, 0.1F, 0.2F, 0.0F}}};
        contacts.materials.push_back(material);
    }
    for (int i = 0; i <= 14; ++i) {
        udtMaterial material;
        material.Color = 0x60A0D0;
        material.Specular = 60;
        material.RayTrace.NormalPattern = i;
        contacts.materials.push_back(material);
    }
    RaytraceRig rig;
    CheckContacts(rig, contacts, Rotated(contacts), "raytrace-patterns.png");
}

TEST(Catalogue, EverySliderChangesThePicture)
{
    using Attributes = CorvexDB::cdtRayTraceMaterialAttributes;
    struct Row {
        std::int32_t colours = 0;  ///< pattern
        std::int32_t normals = 0;  ///< pattern
        std::vector<std::pair<float Attributes::*, float>> sliders;
    };
    const std::vector<Row> rows{
        {0, 0, {{&Attributes::Brilliance, 10.0F}}},
        {0, 0, {{&Attributes::Reflection, 8.0F}}},
        {0, 0, {{&Attributes::Roughness, 10.0F}}},
        {0, 0, {{&Attributes::Roughness, 1.0F}}},
        {0, 0, {{&Attributes::IridescenceFactor, 10.0F}}},
        {12, 0, {{&Attributes::ColorPatternFrequency, 4.0F}}},
        {12, 0, {{&Attributes::ColorPatternTurbulence, 8.0F}}},
        {0, 1, {{&Attributes::NormalScale, 0.0F}}},
        {0, 3, {{&Attributes::NormalDepth, 10.0F}}},
        {0, 3, {{&Attributes::NormalPatternTurbulence, 5.0F}}},
        {0, 3, {{&Attributes::NormalPatternFrequency, 6.0F}}},
    };
    SphereGrid contacts;
    contacts.cell = kCell;
    contacts.columns = 4;
    SphereGrid references = contacts;
    const auto add = [&](const Row& row, udtMaterial material) {
        material.Color = 0x3070C0;
        material.Specular = 70;
        material.RayTrace.ColorPattern = row.colours;
        material.RayTrace.ColorPatternColor[1] = {0.0F, 0.2F, 0.9F, 0.0F};
        material.RayTrace.NormalPattern = row.normals;
        references.materials.push_back(material);
        for (const auto& [slider, position] : row.sliders) {
            material.RayTrace.*slider = position;
        }
        contacts.materials.push_back(material);
    };
    for (const Row& row : rows) {
        add(row, {});
    }
    udtMaterial film;
    film.RayTrace.IridescenceFactor = 10.0F;
    add({0, 0, {{&Attributes::IridescenceThickness, 9.0F}}}, film);
    add({0, 0, {{&Attributes::IridescenceTurbulence, 0.0F}}}, film);
    add({}, {});
    contacts.materials.back().RayTrace.Metallic = true;
    RaytraceRig rig;
    CheckContacts(rig, contacts, references, "raytrace-finish.png");
}

}  // namespace
