#include "studio/libraries/CommandContext.h"

#include "studio/libraries/LibraryQuery.h"

#include <QCoreApplication>

#include <numeric>

namespace studio {

std::vector<std::int32_t> SelectedIn(LibraryFile& library, const LibraryJob& job)
{
    std::vector<std::int32_t> indexes(static_cast<std::size_t>(library.Count()));
    std::iota(indexes.begin(), indexes.end(), 0);
    if (!job.query.isEmpty()) {
        indexes = library.Search(std::get<LibraryQuery>(ReadLibraryQuery(job.query.toStdString())));
    }
    std::erase_if(indexes, [&](std::int32_t index) { return !job.shard.Has(index); });
    return indexes;
}

QString CountText(const char* text, std::size_t count)
{
    return QCoreApplication::translate("LibraryCommand", text, nullptr, static_cast<int>(count));
}

}  // namespace studio
