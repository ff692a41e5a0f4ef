#include "CommandContext.h"
#include "FileWriting.h"
#include "HeadlessThumbnails.h"
#include "LibraryCommandTable.h"
#include "LibraryReading.h"
#include "Thumbnailer.h"

namespace studio {
namespace {

// As many as one change of the library takes: other processes wait for less than a moment.
constexpr std::size_t kPicturesPerChange = 64;

/// Where the pictures go: PNG files in a folder, or the library itself.
class ThumbnailSink {
public:
    /// Without a folder, into the library.
    ThumbnailSink(LibraryFile& library, const QString& folder)
        : m_library(library), m_folder(folder)
    {
        if (!folder.isEmpty()) {
            CorvexMaterial::MakeFolder(folder.toStdString());
        }
    }

    void Put(std::int32_t index, std::string png)
    {
        if (!m_folder.isEmpty()) {
            const QString file = QStringLiteral("/%1.png").arg(index, 6, 10, QLatin1Char('0'));
            CorvexMaterial::WriteFile((m_folder + file).toStdString(), png);
            return;
        }
        m_pictures.push_back({m_library.IdAt(index), std::move(png)});
        if (m_pictures.size() >= kPicturesPerChange) {
            Finish();
        }
    }

    // Without pictures nothing is changed: a library that may only be read is fine then.
    void Finish()
    {
        if (m_pictures.empty()) {
            return;
        }
        m_library.SetThumbnails(m_pictures);
        m_pictures.clear();
    }

private:
    LibraryFile& m_library;
    QString m_folder;
    std::vector<EntryPicture> m_pictures;
};

std::string PictureOf(LibraryFile& library, std::int32_t index, const Thumbnailer& thumbnails)
{
    if (library.Kind() == LibraryKind::Materials) {
        return Thumbnailer::Png(thumbnails.OfMaterial(ReadMaterial(library, index).material));
    }
    const auto picture = Thumbnailer::OfTexture(ReadTexture(library, index));
    if (picture.thumbnail.isNull()) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed, picture.error);
    }
    return Thumbnailer::Png(picture.thumbnail);
}

}  // namespace

void ThumbnailsCommand(CommandContext& context)
{
    LibraryFile library = OpenIn(context.job);
    HeadlessThumbnails thumbnails;
    ThumbnailSink sink(library, context.job.out);
    std::size_t drawn = 0;
    ForEachSelected(library, context, [&](std::int32_t index) {
        if (context.job.missingOnly && !library.ThumbnailAt(index).empty()) {
            return;
        }
        sink.Put(index, PictureOf(library, index, thumbnails.Get()));
        ++drawn;
    });
    sink.Finish();
    context.output.Result({{"drawn", static_cast<int>(drawn)}},
                          {CountText("Thumbnails drawn: %n.", drawn)});
}

}  // namespace studio
