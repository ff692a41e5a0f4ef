#pragma once

#include "MaterialText.h"
#include "ModelImport.h"
#include "Report.h"
#include "StudioScene.h"

#include <QStringList>

#include <span>
#include <stop_token>
#include <string>
#include <vector>

namespace studio {

/// The materials of a file of another program, at least one: of a document of materials, and of any
/// model that can be opened, as they are when it is opened. The report tells what became of each of
/// their properties; it is added to. A model is read by a process of the program's own and waited
/// for. Errors: FileFailed with a message that names file and cause.
[[nodiscard]] std::vector<NamedMaterial> ImportMaterials(const std::string& path, Report& report,
                                                         const ImportProgram& importer = {});

/// Writes a file for other programs, by its extension. Textures are named
/// relative to it; one that does not last, in the temporary folder, is copied to `Textures/` beside
/// it. Errors: FileFailed with a message that names file and cause; Failed, when a stop is asked
/// for in time. An existing file is then as it was.
void ExportMaterials(const std::string& path, std::span<const NamedMaterial> materials,
                     Report& report, const std::stop_token& stop = {});

/// "*.obj *.gltf" and so on, of every format that has shapes.
[[nodiscard]] QString ModelPatterns();

struct ExportedScene {
    std::size_t materials = 0;
    std::vector<std::string> files;  ///< without pictures
};

/// Writes shapes and what they wear for other programs, by the file's extension. Textures are named
/// relative to it or go into it; with them and with materials it is as in ExportMaterials. Errors:
/// FileFailed, also for shapes without any surface; Failed, when a stop is asked for in time.
/// Existing files are then as they were, and there are no new ones.
ExportedScene ExportScene(const std::string& path, const StudioScene::Shapes& shapes,
                          Report& report, const std::stop_token& stop = {});

/// The textures of the shapes that are no files, each once.
[[nodiscard]] std::vector<std::string> TexturesNotFound(const StudioScene::Shapes& shapes);

/// Entries of a file dialog, the one for every format first.
[[nodiscard]] QStringList ImportFilters();
/// One for each format that can be written.
[[nodiscard]] QStringList ExportFilters();
/// One for each format in which scenes are written.
[[nodiscard]] QStringList SceneFilters();
/// ".gltf, .glb" and so on: of the same formats.
[[nodiscard]] QString SceneSuffixes(const char* between);
[[nodiscard]] bool IsSceneFile(const std::string& path);

/// "12 materials: 80 properties mapped, 6 approximated, 14 dropped."
[[nodiscard]] QString SummaryOf(const Report& report, std::size_t materials);

/// One of its lines.
[[nodiscard]] std::string NoteOf(const ReportRow& row);
/// What becomes of losses that are alike: all in all, or a few and the number of the others.
enum class Alike { Listed, Counted };
/// A line for each of the losses, and the summary.
[[nodiscard]] std::vector<std::string> NotesOf(const Report& report, std::size_t materials,
                                               Alike alike = Alike::Counted);

}  // namespace studio
