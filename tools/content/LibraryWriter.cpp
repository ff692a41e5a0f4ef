// Writes the shipped libraries into the folder that is its one argument and has the images already.

#include "Environments.h"
#include "LibraryFile.h"
#include "MaterialText.h"
#include "Materials.h"
#include "RenderService.h"
#include "TextureText.h"
#include "Textures.h"
#include "Thumbnailer.h"

#include <QDir>
#include <QGuiApplication>

#include <cstdio>
#include <optional>

namespace {

using studio::NewEntry;

void Replace(const std::string& path, studio::LibraryKind kind,
             const std::vector<NewEntry>& entries)
{
    QFile::remove(QString::fromStdString(path));
    studio::LibraryFile::Create(path, kind);
    auto library = studio::LibraryFile::Open(path, kind);
    library.Add(entries);
}

/// Without graphics there are no pictures of materials; a browser makes them when it shows them.
class MaterialPictures {
public:
    std::string Of(const CorvexDB::udtMaterial& material)
    {
        if (m_failed) {
            return {};
        }
        try {
            return studio::Thumbnailer::Png(m_thumbnailer.OfMaterial(material));
        } catch (const std::exception& error) {
            std::fprintf(stderr, "library_writer: no thumbnails: %s\n", error.what());
            m_failed = true;
            return {};
        }
    }

private:
    studio::RenderService m_rendering;
    studio::Thumbnailer m_thumbnailer{m_rendering};
    bool m_failed = false;
};

void WriteMaterials(const std::string& folder)
{
    MaterialPictures pictures;
    std::vector<NewEntry> entries;
    for (const auto& [name, material] : media::ShippedMaterials(folder)) {
        entries.push_back(studio::EntryOfMaterial({name, material}, folder));
        entries.back().png = pictures.Of(material);
    }
    Replace(folder + "/Gems.cvm", studio::LibraryKind::Materials, entries);
}

void WriteTextures(const std::string& folder)
{
    std::vector<NewEntry> entries;
    for (const char* part : {"Textures", "Environments"}) {
        const QDir images(QString::fromStdString(folder) + u'/' + QLatin1String(part));
        for (const QString& name : images.entryList(QDir::Files, QDir::Name)) {
            const std::string file = images.filePath(name).toStdString();
            const auto picture = studio::Thumbnailer::OfTexture(file);
            entries.push_back(studio::EntryOfTexture(
                file, folder, {picture.size.width(), picture.size.height()}));
            entries.back().png = studio::Thumbnailer::Png(picture.thumbnail);
        }
    }
    Replace(folder + "/Gems.cvt", studio::LibraryKind::Textures, entries);
}

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("usage: library_writer <folder>\n", stderr);
        return 2;
    }
    try {
        const std::string folder =
            QDir(QString::fromLocal8Bit(argv[1])).absolutePath().toStdString();
        WriteMaterials(folder);
        WriteTextures(folder);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "library_writer: %s\n", error.what());
        return 1;
    }
}
