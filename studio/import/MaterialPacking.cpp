#include "studio/import/MaterialPacking.h"

#include "host/Status.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace studio {
namespace {

// Both processes have the same paths, so any folder will do.
const std::string kFolder = "/";

QJsonArray RowsIn(const Report& report)
{
    QJsonArray rows;
    for (const ReportRow& row : report.Rows()) {
        rows.append(QJsonArray{QString::fromStdString(row.material),
                               QString::fromStdString(row.property), static_cast<int>(row.outcome),
                               QString::fromStdString(row.note)});
    }
    return rows;
}

Report ReportIn(const QJsonArray& rows)
{
    Report report;
    for (const QJsonValue& value : rows) {
        const QJsonArray row = value.toArray();
        const int outcome = std::clamp(row.at(2).toInt(), 0, static_cast<int>(kOutcomeCount) - 1);
        report.Add({row.at(0).toString().toStdString(), row.at(1).toString().toStdString(),
                    static_cast<Outcome>(outcome), row.at(3).toString().toStdString()});
    }
    return report;
}

QJsonArray PicturesIn(const ImportedMaterials& imported)
{
    QJsonArray pictures;
    for (const EmbeddedPicture& picture : imported.pictures) {
        QJsonArray wearers;
        for (const std::size_t wearer : picture.wearers) {
            wearers.append(static_cast<qint64>(wearer));
        }
        pictures.append(QJsonArray{QString::fromLatin1(picture.bytes.toBase64()), wearers});
    }
    return pictures;
}

EmbeddedPicture PictureIn(const QJsonArray& packed, std::size_t materials)
{
    EmbeddedPicture picture{QByteArray::fromBase64(packed.at(0).toString().toLatin1()), {}};
    for (const QJsonValue& wearer : packed.at(1).toArray()) {
        const qint64 index = wearer.toInteger(-1);
        if (index >= 0 && static_cast<std::size_t>(index) < materials) {
            picture.wearers.push_back(static_cast<std::size_t>(index));
        }
    }
    return picture;
}

}  // namespace

QByteArray PackMaterials(const ImportedMaterials& imported)
{
    QJsonArray materials;
    for (const NamedMaterial& named : imported.materials) {
        const std::string json = JsonOfMaterial(named.material, kFolder);
        materials.append(
            QJsonArray{QString::fromStdString(named.name), QString::fromStdString(json)});
    }
    const QJsonObject answer{{"materials", materials},
                             {"report", RowsIn(imported.report)},
                             {"pictures", PicturesIn(imported)}};
    return QJsonDocument(answer).toJson(QJsonDocument::Compact);
}

ImportedMaterials UnpackMaterials(const QByteArray& bytes)
{
    const QJsonObject answer = QJsonDocument::fromJson(bytes).object();
    if (!answer["materials"].isArray()) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed, "no materials came back");
    }
    ImportedMaterials imported{{}, ReportIn(answer["report"].toArray()), {}};
    for (const QJsonValue& value : answer["materials"].toArray()) {
        const QJsonArray named = value.toArray();
        const std::string json = named.at(1).toString().toStdString();
        imported.materials.push_back(
            {named.at(0).toString().toStdString(), MaterialOfJson(json, kFolder).material});
    }
    for (const QJsonValue& picture : answer["pictures"].toArray()) {
        imported.pictures.push_back(PictureIn(picture.toArray(), imported.materials.size()));
    }
    return imported;
}

}  // namespace studio
