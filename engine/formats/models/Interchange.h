#pragma once

#include "MaterialText.h"
#include "ModelImport.h"
#include "Report.h"
#include "StudioScene.h"

#include <QStringList>

#include <span>
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
/// it. Errors: FileFailed with a message that names file and cause; an existing file is
/// then as it was.
void ExportMaterials(const std::string& path, std::span<const NamedMaterial> materials,
                     Report& report);

/// "*.obj *.gltf" and so on, of every format that has shapes.
[[nodiscard]] QString ModelPatterns();

/// Writes shapes and what they wear for other programs, by the file's extension. Textures are named
/// relative to it or go into it; with them and with materials it is as in ExportMaterials. Returns
/// how many materials there are. Errors: FileFailed, also for shapes without any surface; existing
/// files are then as they were.
std::size_t ExportScene(const std::string& path, const StudioScene::Shapes& shapes, Report& report);

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
/// A line for each property that is not mapped, and the summary.
[[nodiscard]] std::vector<std::string> NotesOf(const Report& report, std::size_t materials);

}  // namespace studio
