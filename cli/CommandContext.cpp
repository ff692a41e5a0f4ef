#include "CommandContext.h"

#include "LibraryQuery.h"
#include "StudioProfile.h"

#include <QCoreApplication>

#include <numeric>

namespace studio {

LibraryFile OpenIn(const LibraryJob& job)
{
    LibraryFile library = LibraryFile::Open(job.library.toStdString(), KindIn(job));
    library.SetBackupListener([library = job.library](const std::string& backup) {
        CommandOutput::Remark(Tr("%1 has the format of this version now; as it was it is kept as "
                                 "%2.")
                                  .arg(library, QString::fromStdString(backup)));
    });
    return library;
}

UserMarks OwnMarks()
{
    return UserMarks(MarksFile(UserProfile()));
}

std::vector<std::int32_t> SelectedIn(LibraryFile& library, const LibraryJob& job)
{
    std::vector<std::int32_t> indexes(static_cast<std::size_t>(library.Count()));
    std::iota(indexes.begin(), indexes.end(), 0);
    if (!job.query.isEmpty()) {
        indexes = library.Search(std::get<LibraryQuery>(ReadLibraryQuery(job.query.toStdString())),
                                 OwnMarks().Of(library.Path()));
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
