#include "DocumentSchema.h"

#include <array>

namespace studio {

const DatabaseKind& DocumentKind()
{
    static constexpr std::array kObjects{
        "CREATE TABLE document (key TEXT PRIMARY KEY, json TEXT NOT NULL) STRICT",
        "CREATE TABLE materials (id INTEGER PRIMARY KEY, name TEXT NOT NULL, mode INTEGER NOT "
        "NULL, "
        "json TEXT NOT NULL) STRICT",
        "CREATE TABLE meshes (id INTEGER PRIMARY KEY, vertices INTEGER NOT NULL, "
        "indices INTEGER NOT NULL) STRICT",
        "CREATE TABLE shapes (place INTEGER PRIMARY KEY, name TEXT NOT NULL, mesh INTEGER, "
        "material INTEGER NOT NULL, json TEXT NOT NULL) STRICT",
        "CREATE TABLE textures (id INTEGER PRIMARY KEY, name TEXT NOT NULL, bytes INTEGER NOT "
        "NULL, "
        "sha256 TEXT NOT NULL) STRICT",
        "CREATE TABLE chunks (id INTEGER PRIMARY KEY, kind INTEGER NOT NULL, owner INTEGER NOT "
        "NULL, "
        "part INTEGER NOT NULL, bytes BLOB NOT NULL) STRICT",
        "CREATE UNIQUE INDEX chunks_in_order ON chunks (kind, owner, part)",
    };
    static constexpr DatabaseKind kKind{0x43767853,
                                        1,
                                        "scene document",
                                        "PRAGMA application_id = 0x43767853",
                                        "PRAGMA user_version = 1",
                                        kObjects};
    return kKind;
}

}  // namespace studio
