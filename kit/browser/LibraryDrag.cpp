#include "LibraryDrag.h"

#include "LibraryFile.h"
#include "MaterialDragging.h"
#include "StoredPath.h"
#include "TextureText.h"
#include <CorvexMaterial/Status.h>
#include <CorvexMaterial/TextureFileTypes.h>

#include <QMimeData>
#include <QUrl>

namespace studio {
namespace {

constexpr const char* kOriginFormat = "application/x-corvex-material-origin";

QByteArray BytesOf(const std::string& text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

std::string TextOf(const QMimeData& data, const char* format)
{
    return data.data(QLatin1String(format)).toStdString();
}

EntryOrigin OriginIn(const QMimeData& data)
{
    const QString text = QString::fromUtf8(data.data(QLatin1String(kOriginFormat)));
    return {text.section(u' ', 2).toStdString(), text.section(u' ', 0, 0).toLongLong(),
            text.section(u' ', 1, 1).toStdString()};
}

}  // namespace

std::unique_ptr<QMimeData> DraggedEntry(LibraryFile& file, std::int32_t index)
{
    auto data = std::make_unique<QMimeData>();
    const std::string folder = FolderOf(file.Path());
    const std::string json = file.JsonAt(index);
    if (file.Kind() == LibraryKind::Textures) {
        data->setUrls({QUrl::fromLocalFile(QString::fromStdString(TextureOfJson(json, folder)))});
    } else {
        data->setData(QLatin1String(kMaterialFormat), BytesOf(json));
        data->setData(QLatin1String(kFolderFormat), BytesOf(folder));
        data->setData(QLatin1String(kNameFormat), BytesOf(file.NameAt(index)));
        if (!file.IsInMemory()) {
            const EntryId id = file.IdAt(index);
            data->setData(
                QLatin1String(kOriginFormat),
                BytesOf(std::to_string(id) + ' ' + file.RevisionOf(id) + ' ' + file.Path()));
        }
    }
    return data;
}

std::optional<DroppedMaterial> DraggedMaterial(const QMimeData& data)
{
    if (!data.hasFormat(QLatin1String(kMaterialFormat))) {
        return std::nullopt;
    }
    try {
        const auto reading =
            MaterialOfJson(TextOf(data, kMaterialFormat), TextOf(data, kFolderFormat));
        return DroppedMaterial{{TextOf(data, kNameFormat), reading.material, {}}, OriginIn(data)};
    } catch (const CorvexMaterial::Error&) {
        // Another program may use the format for something else.
        return std::nullopt;
    }
}

QString DraggedTexture(const QMimeData& data)
{
    const QList<QUrl> urls = data.urls();
    const QString file = urls.size() == 1 ? urls.front().toLocalFile() : QString();
    const bool isImage =
        CorvexMaterial::IsListed(file.toStdString(), CorvexMaterial::TextureTypeList::All);
    return isImage ? file : QString();
}

}  // namespace studio
