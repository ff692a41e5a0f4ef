#include "studio/libraries/MaterialText.h"

#include "host/Status.h"
#include "studio/libraries/MaterialJsonFields.h"
#include "studio/libraries/StoredPath.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace studio {
namespace {

constexpr QLatin1String kTextures("textures");
constexpr QLatin1String kPlacement("placement");
constexpr QLatin1String kRaytrace("raytrace");
constexpr QLatin1String kPluginParameters("pluginParameters");
constexpr QLatin1String kCustomFields("customFields");
constexpr QLatin1String kPatternColours("patternColours");
constexpr qsizetype kMostPluginParameters = 10;

using Raytrace = CorvexDB::cdtRayTraceMaterialAttributes;
using Material = CorvexDB::udtMaterial;
using CustomFields = std::array<std::string, CorvexDB::kCustomFieldCount>;

QJsonObject JsonOfTextures(const CorvexDB::TextureFiles& files, const std::string& folder)
{
    QJsonObject json;
    for (const auto& row : kTextureFileFields) {
        if (const std::string& file = files.*row.member; !file.empty()) {
            json[QLatin1String(row.key)] = QString::fromStdString(StoredPath(file, folder));
        }
    }
    return json;
}

QJsonObject JsonOfRaytrace(const Raytrace& raytrace)
{
    QJsonObject json = JsonOfFields(raytrace, kRaytraceFields);
    QJsonArray colours;
    for (const auto& colour : raytrace.ColorPatternColor) {
        colours.append(JsonOfFields(colour, kPatternColourFields));
    }
    json[kPatternColours] = colours;
    return json;
}

void ReadTextures(CorvexDB::TextureFiles& files, FieldReader reader, const std::string& folder)
{
    for (const auto& row : kTextureFileFields) {
        std::string& file = files.*row.member;
        reader.Read(QLatin1String(row.key), {}, file);
        file = PathOfStored(file, folder);
    }
}

void ReadRaytrace(Raytrace& raytrace, FieldReader reader)
{
    ReadFields(reader, raytrace, kRaytraceFields);
    const QJsonArray colours = reader.Array(kPatternColours);
    qsizetype i = 0;
    for (auto& colour : raytrace.ColorPatternColor) {
        FieldReader channels = reader.Inside(kPatternColours, colours.at(i++));
        ReadFields(channels, colour, kPatternColourFields);
    }
}

void ReadPluginParameters(std::vector<float>& parameters, FieldReader& reader)
{
    const QJsonArray values = reader.Array(kPluginParameters);
    if (values.size() > kMostPluginParameters) {
        reader.Complain(kPluginParameters, QStringLiteral("has more than ten values"));
    }
    for (qsizetype i = 0; i < std::min(values.size(), kMostPluginParameters); ++i) {
        reader.Element(kPluginParameters, values[i], kAnyFloat, parameters.emplace_back(0.0F));
    }
}

void ReadCustomFields(Material& material, FieldReader& reader)
{
    const QJsonArray values = reader.Array(kCustomFields);
    qsizetype i = 0;
    for (std::string& field : material.CustomFields) {
        const QJsonValue value = values.at(i++);
        field = value.toString().toStdString();
        if (!value.isString() && !value.isUndefined()) {
            reader.Complain(kCustomFields, QStringLiteral("holds something that is no text"));
        }
    }
}

QJsonObject JsonObjectIn(std::string_view json)
{
    QJsonParseError error{};
    const auto document = QJsonDocument::fromJson(
        QByteArray(json.data(), static_cast<qsizetype>(json.size())), &error);
    if (!document.isObject()) {
        const QString cause = error.error == QJsonParseError::NoError ? QStringLiteral("no object")
                                                                      : error.errorString();
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed, cause.toStdString());
    }
    return document.object();
}

std::string FieldLines(const CustomFields& values, const FieldNames& names)
{
    std::string lines;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (const std::string& value = values.at(i); !value.empty()) {
            lines += FieldLine(std::to_string(i + 1), value);
            lines += i < names.size() && !names[i].empty() ? FieldLine(names[i], value) : "";
        }
    }
    return lines;
}

// Patterns, types and a predefined material: what only a raytracer shows.
bool IsRaytraced(const Raytrace& raytrace)
{
    return raytrace.MaterialType != 0 || raytrace.ColorPattern != 0 || raytrace.NormalPattern != 0;
}

// As they are stored: where a library lies is neither its content nor anybody's business.
void DescribeFiles(SearchValues& search, const CorvexDB::TextureFiles& files,
                   const std::string& folder)
{
    std::int64_t layers = 0;
    std::int64_t bit = 1;
    for (const auto& row : kTextureFileFields) {
        if (const std::string& file = files.*row.member; !file.empty()) {
            layers |= bit;
            search[TextProperty::Files] += Folded(StoredPath(file, folder)) + '\n';
        }
        bit <<= 1;
    }
    search[NumberProperty::Layers] = layers;
}

SearchValues SearchValuesOf(const Material& material, const std::string& folder,
                            const FieldNames& names)
{
    SearchValues search;
    search[NumberProperty::Colour] = material.Color & 0xFFFFFF;
    search[NumberProperty::Ambient] = material.Ambient;
    search[NumberProperty::Emissive] = material.Emissive;
    search[NumberProperty::Specular] = material.Specular;
    search[NumberProperty::Transparency] = material.Transparency;
    search[NumberProperty::DoubleSided] = material.DoubleSided ? 1 : 0;
    search[NumberProperty::AlphaTest] = material.AlphaTest;
    search[NumberProperty::Raytraced] = IsRaytraced(material.RayTrace) ? 1 : 0;
    search[TextProperty::Plugin] = Folded(material.Plugin);
    search[TextProperty::Fields] = FieldLines(material.CustomFields, names);
    DescribeFiles(search, material.Textures, folder);
    return search;
}

}  // namespace

std::string JsonOfMaterial(const Material& material, const std::string& folder)
{
    QJsonObject json = JsonOfFields(material, kMaterialFields);
    json[kPlacement] = JsonOfFields(material.Placement, kPlacementFields);
    json[kTextures] = JsonOfTextures(material.Textures, folder);
    json[kRaytrace] = JsonOfRaytrace(material.RayTrace);
    json[kPluginParameters] = JsonArrayOf(material.PluginParameters);
    json[kCustomFields] = JsonArrayOf(material.CustomFields);
    return QJsonDocument(json).toJson(QJsonDocument::Compact).toStdString();
}

MaterialReading MaterialOfJson(std::string_view json, const std::string& folder)
{
    MaterialReading reading;
    Material& material = reading.material;
    FieldReader reader(JsonObjectIn(json), reading.problems);
    ReadFields(reader, material, kMaterialFields);
    FieldReader placement = reader.Inside(kPlacement);
    ReadFields(placement, material.Placement, kPlacementFields);
    ReadTextures(material.Textures, reader.Inside(kTextures), folder);
    ReadRaytrace(material.RayTrace, reader.Inside(kRaytrace));
    ReadPluginParameters(material.PluginParameters, reader);
    ReadCustomFields(material, reader);
    return reading;
}

std::optional<EntryContent> WithMovedFields(std::string_view json, const FieldPlaces& from,
                                            const FieldNames& fieldNames)
{
    QJsonObject object =
        QJsonDocument::fromJson(QByteArray(json.data(), std::ssize(json))).object();
    const QJsonArray before = object[kCustomFields].toArray();
    CustomFields values;
    for (std::size_t i = 0; i < values.size(); ++i) {
        values.at(i) = before.at(static_cast<qsizetype>(from.at(i))).toString().toStdString();
    }
    if (values == CustomFields()) {
        return std::nullopt;
    }
    object[kCustomFields] = JsonArrayOf(values);
    return EntryContent{QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString(),
                        FieldLines(values, fieldNames)};
}

NewEntry EntryOfMaterial(const NamedMaterial& named, const std::string& folder,
                         const FieldNames& fieldNames)
{
    return {named.name,
            JsonOfMaterial(named.material, folder),
            {},
            SearchValuesOf(named.material, folder, fieldNames)};
}

}  // namespace studio
