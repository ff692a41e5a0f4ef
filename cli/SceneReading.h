#pragma once

#include "Interchange.h"
#include "Report.h"
#include "SceneDocument.h"
#include "StudioScene.h"

#include <QString>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace studio {

struct NamedMaterial;

/// What a command works on, whatever kind of file it came from.
struct SceneReading {
    SceneContent content;
    /// What its format says otherwise, and what is damaged.
    Report report;
    std::optional<SceneDocument> document;  ///< of a document
};

/// Where the pictures go that are inside a file.
struct PictureFolders {
    std::string ofModel;     ///< into `Textures/` in it
    std::string ofDocument;  ///< each into a folder of its own
};

/// Is told what a person should know.
using Remark = std::function<void(const QString&)>;

/// Says on standard error how much there is, and what it goes without: of much, the beginning.
/// Where it is more than coming close, that is a loss.
void TellReading(const SceneReading& reading, const QString& file, const Remark& loss);

/// Where the studio puts the pictures out of documents.
[[nodiscard]] std::string DocumentPictureFolder();
/// Those inside a file go where they last beside one that is written.
[[nodiscard]] PictureFolders PicturesBeside(const QString& file);

/// By its name's ending.
[[nodiscard]] bool IsSceneDocument(const QString& file);

/// Reads a model or a document. Errors: FileFailed, naming the file.
[[nodiscard]] SceneReading ReadScene(const QString& file, const PictureFolders& pictures,
                                     SceneDocument::Use use = SceneDocument::Use::Read);

[[nodiscard]] StudioScene::Shapes ShapesOf(const SceneContent& content);

/// A material and the shapes that have it.
struct WornMaterial {
    std::string name;  ///< one without is called after its first shape
    AppliedMaterial applied;
    std::vector<std::size_t> wearers;  ///< places of shapes
};
[[nodiscard]] std::vector<WornMaterial> MaterialsOf(const SceneContent& content);

/// The materials of a file of any kind: a library, a document, the studio's own .json, those of
/// other programs. Notes are for a person. Errors: FileFailed, naming the file.
[[nodiscard]] std::vector<NamedMaterial> ReadMaterials(const QString& file,
                                                       const PictureFolders& pictures,
                                                       std::vector<std::string>& notes,
                                                       Alike alike = Alike::Listed);

}  // namespace studio
