#pragma once

#include "Database.h"
#include "EntryMarks.h"

namespace studio {

struct LibraryQuery;

/// What a query is asked of, beside the tables of the first format.
struct QuerySources {
    bool hasDetails = true;
    const EntryMarks& marks;  ///< outlives the statement
};

/// Ids of the entries that pass the query and are not in the trash, ascending. Ready to be stepped.
[[nodiscard]] Statement CompiledQuery(Database& database, const LibraryQuery& query,
                                      const QuerySources& sources);

}  // namespace studio
