#include "MaterialClip.h"

#include "JsonFields.h"
#include <CorvexMaterial/Schema.h>

#include <QCoreApplication>
#include <QJsonDocument>
#include <QMimeData>

#include <algorithm>

namespace CorvexMaterial {

namespace {

const auto kFormat = QStringLiteral("application/x-corvex-material-attributes");
constexpr QLatin1String kVersionKey("corvexMaterial");
constexpr QLatin1String kWholeKey("whole");
constexpr QLatin1String kNameKey("name");
constexpr QLatin1String kAttributesKey("attributes");
constexpr int kVersion = 1;

/// A material with all its texts is a few thousand.
constexpr qsizetype kMostBytes = 256 * 1024;
/// Of a single value, and of a name.
constexpr qsizetype kLongestText = 4096;

QByteArray JsonOf(const MaterialClip& clip)
{
    QJsonObject json{{kVersionKey, kVersion},
                     {kAttributesKey, JsonOfAttributes(clip.record, clip.attributes)}};
    if (clip.isWhole) {
        json.insert(kWholeKey, true);
    }
    if (!clip.name.empty()) {
        json.insert(kNameKey, QString::fromStdString(clip.name));
    }
    return QJsonDocument(json).toJson();
}

/// A file is looked for where it is said to be and nowhere else.
void LeaveOutRelativeFiles(MaterialClip& clip, std::vector<std::string>& problems)
{
    for (const Attribute layer : kTextureFiles) {
        const RecordPath& path = RowOf(layer).path;
        const auto file = std::get<std::string>(path.get(clip.record));
        if (!file.empty() && file.front() != '/') {
            path.set(clip.record, std::string());
            std::erase(clip.attributes, layer);
            problems.push_back('"' + file + "\" is no full path");
        }
    }
}

std::optional<MaterialClip> ClipIn(const QByteArray& bytes, QString& problem)
{
    QJsonParseError error{};
    const QJsonObject json = QJsonDocument::fromJson(bytes, &error).object();
    if (!json.contains(kVersionKey)) {
        problem = error.error == QJsonParseError::NoError ? QString() : error.errorString();
        return std::nullopt;
    }
    if (json.value(kVersionKey).toInt() != kVersion) {
        problem = QCoreApplication::translate(
            "MaterialClip", "It was copied from another version of this program.");
        return std::nullopt;
    }
    MaterialClip clip;
    std::vector<std::string> problems;
    clip.attributes = ReadRecord(json.value(kAttributesKey).toObject(), clip.record, problems);
    LeaveOutRelativeFiles(clip, problems);
    clip.isWhole = json.value(kWholeKey).toBool();
    if (clip.isWhole) {
        clip.name = json.value(kNameKey).toString().left(kLongestText).trimmed().toStdString();
        clip.attributes.clear();
        for (const AttributeRow& row : AttributeRows()) {
            if (row.path.LeadsIntoRecord()) {
                clip.attributes.push_back(row.attribute);
            }
        }
    }
    if (!problems.empty()) {
        problem = QCoreApplication::translate("MaterialClip", "Not taken: %1.")
                      .arg(QString::fromStdString(problems.front()));
    }
    return clip.attributes.empty() ? std::nullopt : std::optional(std::move(clip));
}

}  // namespace

std::unique_ptr<QMimeData> MimeOf(const std::optional<MaterialClip>& clip, const QString& text)
{
    auto data = std::make_unique<QMimeData>();
    const QByteArray json = clip ? JsonOf(*clip) : QByteArray();
    if (clip) {
        data->setData(kFormat, json);
    }
    data->setText(text.isNull() ? QString::fromUtf8(json) : text);
    return data;
}

ClipReading ReadClip(const QMimeData* data)
{
    ClipReading reading;
    if (data == nullptr) {
        return reading;
    }
    const QString text = data->text();
    const QByteArray bytes = data->hasFormat(kFormat) ? data->data(kFormat) : text.toUtf8();
    if (bytes.size() > kMostBytes) {
        reading.problem =
            QCoreApplication::translate("MaterialClip", "It is too large to be a material.");
        return reading;
    }
    if (bytes.trimmed().startsWith('{')) {
        reading.clip = ClipIn(bytes, reading.problem);
    }
    reading.text = text.size() <= kLongestText ? text.trimmed() : QString();
    return reading;
}

}  // namespace CorvexMaterial
