#include "TextureText.h"

#include "StoredPath.h"
#include <CorvexMaterial/Status.h>

#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

namespace studio {
namespace {

constexpr QLatin1String kFile("file");

}  // namespace

std::string JsonOfTexture(const std::string& file, const std::string& folder)
{
    const QJsonObject json{{kFile, QString::fromStdString(StoredPath(file, folder))}};
    return QJsonDocument(json).toJson(QJsonDocument::Compact).toStdString();
}

std::string TextureOfJson(std::string_view json, const std::string& folder)
{
    const auto document =
        QJsonDocument::fromJson(QByteArray(json.data(), static_cast<qsizetype>(json.size())));
    const QString stored = document.object().value(kFile).toString();
    if (stored.isEmpty()) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed, "it names no file");
    }
    return PathOfStored(stored.toStdString(), folder);
}

NewEntry EntryOfTexture(const std::string& file, const std::string& folder, PixelExtent extent)
{
    NewEntry entry;
    entry.name = QFileInfo(QString::fromStdString(file)).completeBaseName().toStdString();
    entry.json = JsonOfTexture(file, folder);
    entry.search[TextProperty::Files] = Folded(StoredPath(file, folder)) + '\n';
    if (extent.width > 0 && extent.height > 0) {
        entry.search[NumberProperty::Width] = extent.width;
        entry.search[NumberProperty::Height] = extent.height;
    }
    return entry;
}

}  // namespace studio
