#pragma once

// The pieces of a document's rows, between the file and what the studio works with.

#include "Database.h"
#include "DocumentSchema.h"
#include "SceneContent.h"

#include <QByteArray>

#include <span>
#include <string>
#include <string_view>

namespace studio {

/// Bytes in pieces, in place of those that were there.
void WriteChunks(Database& database, ChunkOwner kind, std::int64_t owner,
                 std::span<const char> bytes);
void RemoveChunks(Database& database, ChunkOwner kind, std::int64_t owner);
/// Puts the pieces one behind the other. Errors: FileFailed when they are not that many bytes.
void ReadChunks(Database& database, ChunkOwner kind, std::int64_t owner, std::span<char> bytes);

void WriteMesh(Database& database, std::int64_t id, const Mesh& mesh);
/// Errors: FileFailed for one that is damaged.
[[nodiscard]] std::shared_ptr<const Mesh> ReadMesh(Database& database, std::int64_t id);

/// JSON of the table of what there is once; empty where there is none.
[[nodiscard]] std::string ValueOf(Database& database, std::string_view key);

/// Where a shape stands and how it is drawn.
[[nodiscard]] QByteArray JsonOfShape(const ShapeState& shape);
/// What is missing or makes no sense stays as it is; false when that is where it stands.
[[nodiscard]] bool ReadShape(std::string_view json, ShapeState& shape);

[[nodiscard]] QByteArray JsonOfCamera(const Camera& camera);
[[nodiscard]] std::optional<Camera> CameraOfJson(std::string_view json);
[[nodiscard]] QByteArray JsonOfViews(const std::vector<NamedView>& views);
/// Without those that cannot be used.
[[nodiscard]] std::vector<NamedView> ViewsOfJson(std::string_view json);
[[nodiscard]] QByteArray JsonOfSource(const SourceModel& source, const std::string& folder);
[[nodiscard]] SourceModel SourceOfJson(std::string_view json, const std::string& folder);

/// A material's attributes by their words, textures relative to the folder where they can be, with
/// those that only a later program knows, and its link.
[[nodiscard]] QByteArray JsonOfSceneMaterial(const CorvexDB::udtMaterial& material,
                                             const SceneMaterial& identity,
                                             const std::string& folder);
/// With an identity of its own. A problem is what has its default now, for a person.
[[nodiscard]] AppliedMaterial SceneMaterialOfJson(std::string_view json, const std::string& name,
                                                  std::int64_t mode, const std::string& folder,
                                                  std::vector<std::string>& problems);

}  // namespace studio
