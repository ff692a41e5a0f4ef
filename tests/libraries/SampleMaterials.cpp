#include "SampleMaterials.h"
#include "Testing.h"

namespace LibraryTest {
namespace {

int Whole(std::mt19937& dice, int least, int most)
{
    return least + static_cast<int>(dice() % static_cast<unsigned>(most - least + 1));
}

float Fraction(std::mt19937& dice)
{
    return static_cast<float>(dice()) / 4.3e9F;
}

std::string Text(std::mt19937& dice, const char* stem)
{
    return stem + std::string(" \"\xC3\xA4\\\n") + std::to_string(dice());
}

CorvexDB::cdtRayTraceMaterialAttributes AnyRaytrace(std::mt19937& dice)
{
    CorvexDB::cdtRayTraceMaterialAttributes raytrace;
    for (auto* amount : {&raytrace.Brilliance, &raytrace.Reflection, &raytrace.IridescenceFactor,
                         &raytrace.IridescenceThickness, &raytrace.IridescenceTurbulence,
                         &raytrace.Roughness, &raytrace.NormalDepth, &raytrace.NormalScale,
                         &raytrace.ColorPatternFrequency, &raytrace.ColorPatternTurbulence,
                         &raytrace.NormalPatternFrequency, &raytrace.NormalPatternTurbulence}) {
        *amount = 10.0F * Fraction(dice);
    }
    for (auto* position : {&raytrace.NormalPattern, &raytrace.PredefinedType,
                           &raytrace.PreDefinedMaterial, &raytrace.ColorPattern}) {
        *position = Whole(dice, 1, 9);
    }
    raytrace.Metallic = true;
    raytrace.MaterialType = 1;
    for (auto& colour : raytrace.ColorPatternColor) {
        colour = {Fraction(dice), Fraction(dice), Fraction(dice), Fraction(dice)};
    }
    return raytrace;
}

}  // namespace

CorvexDB::udtMaterial AnyMaterial(std::mt19937& dice)
{
    CorvexDB::udtMaterial material;
    material.Color = Whole(dice, 0, 0xFFFFFE);
    material.Ambient = Whole(dice, -1000, -1);
    material.Emissive = Whole(dice, 101, 2147483646);
    material.Specular = Whole(dice, 1, 100);
    material.Transparency = Whole(dice, 1, 100);
    material.WrapOrientationU = material.WrapOrientationV = material.DoubleSided = true;
    material.AlphaTest = Whole(dice, 1, 7);
    material.AlphaTestReference = Whole(dice, 1, 255);
    material.Wrap = static_cast<CorvexDB::WrapType>(Whole(dice, 1, 2));
    material.FlatWrap = static_cast<CorvexDB::FlatWrapType>(Whole(dice, 1, 2));
    material.TilesPerUnit = 1e-3F * Fraction(dice);
    material.TextureAlphaChannelUse = Whole(dice, 1, 4);
    material.AlphaIsTransparent = true;
    material.OverlayTranslucency = 100.0F * Fraction(dice);
    material.Textures = {"/t/" + Text(dice, "p"), Text(dice, "o"), Text(dice, "a"),
                         Text(dice, "b"),         Text(dice, "s"), Text(dice, "e")};
    material.Placement = {Fraction(dice), Fraction(dice), -Fraction(dice), Fraction(dice)};
    material.RayTrace = AnyRaytrace(dice);
    material.Plugin = Text(dice, "Brick");
    for (int i = Whole(dice, 1, 10); i > 0; --i) {
        material.PluginParameters.push_back(1e10F * (Fraction(dice) - 0.5F));
    }
    for (std::string& field : material.CustomFields) {
        field = Text(dice, "field");
    }
    return material;
}

studio::NewEntry EntryNamed(const std::string& name)
{
    return studio::EntryOfMaterial({name, {}}, "/");
}

TemporaryLibrary::TemporaryLibrary(studio::LibraryKind kind)
    : m_folder(QFileInfo(QStringLiteral("/dev/shm")).isWritable()
                   ? QStringLiteral("/dev/shm/libraries-XXXXXX")
                   : QDir::tempPath() + QStringLiteral("/libraries-XXXXXX")),
      m_kind(kind)
{
    studio::LibraryFile::Create(Path(), kind);
}

std::string TemporaryLibrary::Path() const
{
    return PathOf(m_kind == studio::LibraryKind::Materials ? "some.cvm" : "some.cvt");
}

std::string TemporaryLibrary::PathOf(const char* name) const
{
    return m_folder.filePath(QString::fromUtf8(name)).toStdString();
}

studio::LibraryFile TemporaryLibrary::Open() const
{
    return studio::LibraryFile::Open(Path(), m_kind);
}

QByteArray TemporaryLibrary::Bytes() const
{
    QFile file(QString::fromStdString(Path()));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TemporaryLibrary::SetBytes(const QByteArray& bytes) const
{
    QFile file(QString::fromStdString(Path()));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        throw std::runtime_error("cannot write the library of a test");
    }
}

std::vector<std::string> NamesIn(studio::LibraryFile& library)
{
    std::vector<std::string> names;
    for (std::int32_t index = 0; index < library.Count(); ++index) {
        names.push_back(library.NameAt(index));
    }
    return names;
}

}  // namespace LibraryTest
