#include "MaterialText.h"

#include "JsonFields.h"
#include "StoredPath.h"
#include <CorvexMaterial/Looks.h>
#include <CorvexMaterial/Status.h>

#include <QJsonArray>
#include <QJsonDocument>

namespace studio {
namespace {

using CorvexMaterial::Attribute;
using CorvexMaterial::JsonOf;
using CorvexMaterial::JsonOfRecord;
using CorvexMaterial::kTextureFiles;
using CorvexMaterial::ReadRecord;
using Material = CorvexDB::udtMaterial;
using CustomFields = CorvexMaterial::CustomFieldValues;

constexpr QLatin1String kCustomFields("customFields");

std::string FileIn(const Material& material, Attribute layer)
{
    return std::get<std::string>(RowOf(layer).path.get(material));
}

Material WithPaths(Material material, const std::string& folder,
                   std::string (*change)(const std::string& path, const std::string& folder))
{
    for (const Attribute layer : kTextureFiles) {
        RowOf(layer).path.set(material, change(FileIn(material, layer), folder));
    }
    return material;
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
bool IsRaytraced(const CorvexDB::cdtRayTraceMaterialAttributes& raytrace)
{
    return CorvexMaterial::IsPredefined(raytrace) || raytrace.ColorPattern != 0 ||
           raytrace.NormalPattern != 0;
}

// As they are stored: where a library lies is neither its content nor anybody's business.
void DescribeFiles(SearchValues& search, const Material& stored)
{
    std::int64_t layers = 0;
    std::int64_t bit = 1;
    for (const Attribute layer : kTextureFiles) {
        if (const std::string file = FileIn(stored, layer); !file.empty()) {
            layers |= bit;
            search[TextProperty::Files] += Folded(file) + '\n';
        }
        bit <<= 1;
    }
    search[NumberProperty::Layers] = layers;
}

std::int64_t NumberIn(const Material& material, Attribute attribute)
{
    const auto value = RowOf(attribute).path.get(material);
    const auto* const flag = std::get_if<bool>(&value);
    const std::int64_t number = flag != nullptr ? *flag : std::get<std::int32_t>(value);
    return attribute == Attribute::Color ? number & CorvexMaterial::kWhite : number;
}

SearchValues SearchValuesOf(const Material& material, const std::string& folder,
                            const FieldNames& names)
{
    SearchValues search;
    std::ranges::transform(AttributesOfColumns(), search.numbers.begin(),
                           [&](Attribute attribute) { return NumberIn(material, attribute); });
    search[NumberProperty::Raytraced] = IsRaytraced(material.RayTrace) ? 1 : 0;
    search[TextProperty::Plugin] = Folded(material.Plugin);
    search[TextProperty::Fields] = FieldLines(material.CustomFields, names);
    DescribeFiles(search, WithPaths(material, folder, StoredPath));
    return search;
}

}  // namespace

std::string JsonOfMaterial(const Material& material, const std::string& folder)
{
    const QJsonObject json = JsonOfRecord(WithPaths(material, folder, StoredPath));
    return QJsonDocument(json).toJson(QJsonDocument::Compact).toStdString();
}

MaterialReading MaterialOfJson(std::string_view json, const std::string& folder)
{
    MaterialReading reading;
    ReadRecord(JsonObjectIn(json), reading.material, reading.problems);
    reading.material = WithPaths(std::move(reading.material), folder, PathOfStored);
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
    object[kCustomFields] = JsonOf(values);
    return EntryContent{QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString(),
                        FieldLines(values, fieldNames)};
}

NewEntry EntryOfMaterial(const NamedMaterial& named, const std::string& folder,
                         const FieldNames& fieldNames)
{
    return {named.name,
            JsonOfMaterial(named.material, folder),
            {},
            SearchValuesOf(named.material, folder, fieldNames),
            named.details};
}

}  // namespace studio
