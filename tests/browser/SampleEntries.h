#pragma once

#include "LibraryFile.h"
#include "MaterialText.h"
#include "StoredPath.h"
#include "Testing.h"
#include "TextureText.h"

namespace BrowserTest {

/// Libraries in a folder of their own.
class SampleLibraries {
public:
    [[nodiscard]] std::string PathOf(const char* name) const
    {
        return m_folder.filePath(QLatin1String(name)).toStdString();
    }

    studio::LibraryFile Materials(const char* name, const std::vector<std::string>& names)
    {
        const std::string path = PathOf(name);
        studio::LibraryFile::Create(path, studio::LibraryKind::Materials);
        auto file = studio::LibraryFile::Open(path, studio::LibraryKind::Materials);
        std::vector<studio::NewEntry> entries;
        for (const std::string& material : names) {
            studio::NamedMaterial named{material, {}};
            named.material.Transparency = static_cast<std::int32_t>(entries.size() % 100);
            entries.push_back(EntryOfMaterial(named, m_folder.path().toStdString()));
        }
        file.Add(entries);
        return file;
    }

private:
    QTemporaryDir m_folder;
};

}  // namespace BrowserTest
