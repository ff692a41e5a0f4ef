#pragma once

#include "FileSet.h"
#include "SourcePatch.h"

#include <QByteArray>

#include <span>
#include <string>

namespace studio {

/// A file format of other programs: its one reader, whichever way a file comes in, and its writers.
struct Format {
    const char* suffix;
    const char* name;  ///< for a person, marked with QT_TRANSLATE_NOOP("Studio", ...)
    ImportedModel (*read)(const std::string& path);
    /// Null for a format that holds no materials alone, or is only read.
    QByteArray (*write)(std::span<const NamedMaterial> materials, const std::string& folder,
                        Report& report);
    /// Documents of materials are small, and their readers ours: they need no process of their own.
    bool hasShapes;
    /// Writes shapes and what they wear into files that it adds to the set. Null for a format that
    /// holds none, or is only read. Errors: FileFailed.
    void (*writeScene)(const ImportedModel& scene, const std::string& path, Report& report,
                       CorvexMaterial::FileSet& files) = nullptr;
    bool holdsPictures = false;  ///< when it writes a scene, which needs no other file then
    /// Null for a format that materials are not saved back into.
    SourcePatch (*patch)(const MaterialSource& source, const DressedShapes& now,
                         const QByteArray& bytes, PatchFor purpose) = nullptr;
};

[[nodiscard]] std::span<const Format> Formats();
/// By the extension, in any case; null for one that is not in the list, which Assimp may know.
[[nodiscard]] const Format* FormatOf(const std::string& path);

/// Reads a file of any format in this very process, in which a damaged file may end it: only for
/// our own files, and for a process made for it. Errors: FileFailed naming file and reason,
/// OutOfMemory.
[[nodiscard]] ImportedModel ReadForeignFile(const std::string& path);
/// The same of a file that has shapes. Errors: as above, also for one without a surface.
[[nodiscard]] ImportedModel ReadModel(const std::string& path);

}  // namespace studio
