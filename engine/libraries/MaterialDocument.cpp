#include "MaterialDocument.h"

#include "FileWriting.h"
#include "MaterialName.h"
#include "QtRegularFile.h"
#include "StoredPath.h"
#include <CorvexMaterial/Status.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace studio {
namespace {

constexpr QLatin1String kMaterials("materials");
constexpr QLatin1String kEntryName("name");
constexpr QLatin1String kEntryMaterial("material");

[[noreturn]] void RefuseDocumentFile(const std::string& path, const QString& cause)
{
    throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed,
                                path + ": " + cause.toStdString());
}

struct DetailKey {
    QLatin1String key;
    std::string EntryDetails::*text;
};
constexpr DetailKey kDetailKeys[] = {{QLatin1String("author"), &EntryDetails::author},
                                     {QLatin1String("licence"), &EntryDetails::licence},
                                     {QLatin1String("source"), &EntryDetails::source}};
struct LabelKey {
    QLatin1String key;
    LabelKind kind;
};
constexpr LabelKey kLabelKeys[] = {{QLatin1String("tags"), LabelKind::Tag},
                                   {QLatin1String("collections"), LabelKind::Collection}};

QByteArray CompactObject(const QJsonValue& value)
{
    return QJsonDocument(value.toObject()).toJson(QJsonDocument::Compact);
}

}  // namespace

void AddDetails(QJsonObject& json, const EntryDetails& details)
{
    for (const auto& [key, text] : kDetailKeys) {
        if (!(details.*text).empty()) {
            json[key] = QString::fromStdString(details.*text);
        }
    }
    for (const auto& [key, kind] : kLabelKeys) {
        QJsonArray labels;
        for (const std::string& label : LabelsIn(details, kind)) {
            labels.append(QString::fromStdString(label));
        }
        if (!labels.isEmpty()) {
            json[key] = labels;
        }
    }
}

EntryDetails DetailsOfJson(const QJsonObject& json)
{
    EntryDetails details;
    for (const auto& [key, text] : kDetailKeys) {
        details.*text = json[key].toString().simplified().toStdString();
    }
    for (const auto& [key, kind] : kLabelKeys) {
        std::vector<std::string> labels;
        for (const QJsonValue& label : json[key].toArray()) {
            labels.push_back(label.toString().toStdString());
        }
        LabelsIn(details, kind) = TidyLabels(labels);
    }
    return details;
}

void WriteMaterialDocument(const std::string& path, std::span<const NamedMaterial> materials)
{
    QJsonArray array;
    for (const NamedMaterial& named : materials) {
        const std::string json = JsonOfMaterial(named.material, FolderOf(path));
        QJsonObject entry{
            {kEntryName, QString::fromStdString(named.name)},
            {kEntryMaterial, QJsonDocument::fromJson(QByteArray::fromStdString(json)).object()}};
        AddDetails(entry, named.details);
        array.append(entry);
    }
    CorvexMaterial::WriteFile(path, QJsonDocument(QJsonObject{{kMaterials, array}}).toJson());
}

std::vector<NamedMaterial> ReadMaterialDocument(const std::string& path,
                                                std::vector<std::string>& problems)
{
    constexpr std::int64_t kMostBytes = std::int64_t{1} << 30;  // with no pictures in it
    QJsonParseError error{};
    const auto document = QJsonDocument::fromJson(
        CorvexMaterial::ReadRegular(QString::fromStdString(path), kMostBytes), &error);
    const QJsonValue list = document.object().value(kMaterials);
    if (!list.isArray()) {
        RefuseDocumentFile(path, error.error == QJsonParseError::NoError
                                     ? QStringLiteral("holds no list \"materials\"")
                                     : error.errorString());
    }
    std::vector<NamedMaterial> materials;
    for (const QJsonValue& entry : list.toArray()) {
        MaterialReading reading =
            MaterialOfJson(CompactObject(entry[kEntryMaterial]).toStdString(), FolderOf(path));
        const std::string given = entry[kEntryName].toString().simplified().toStdString();
        const std::string name = given.empty() ? DescriptiveName(reading.material) : given;
        for (const std::string& problem : reading.problems) {
            problems.push_back('"' + name + "\": " + problem);
        }
        materials.push_back({name, std::move(reading.material), DetailsOfJson(entry.toObject())});
    }
    return materials;
}

}  // namespace studio
