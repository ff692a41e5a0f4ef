#include "CommandContext.h"

#include "LibraryQuery.h"

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

void TellProblems(LibraryFile& library, std::int32_t index,
                  const std::vector<std::string>& problems, CommandContext& context)
{
    for (const std::string& problem : problems) {
        context.output.Problem(QStringLiteral("%1: entry \"%2\": %3")
                                   .arg(QString::fromStdString(library.Path()),
                                        QString::fromStdString(library.NameAt(index)),
                                        QString::fromStdString(problem)));
    }
}

QString CountText(const char* text, std::size_t count)
{
    return QCoreApplication::translate("LibraryCommand", text, nullptr, static_cast<int>(count));
}

}  // namespace studio
