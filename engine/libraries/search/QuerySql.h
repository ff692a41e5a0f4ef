#pragma once

#include "Database.h"

namespace studio {

struct LibraryQuery;

/// Ids of the entries that pass the query and are not in the trash, ascending. Ready to be stepped.
[[nodiscard]] Statement CompiledQuery(Database& database, const LibraryQuery& query);

}  // namespace studio
