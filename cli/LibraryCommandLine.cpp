#include "LibraryCommandLine.h"

#include "LibraryCommandTable.h"
#include "LibraryQuery.h"
#include "LibrarySchema.h"
#include "MaterialAssignment.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>

namespace studio {
namespace {

constexpr const char* kLibraryHelp =
    R"(Material (.cvm) and texture libraries (.cvt), without a window:
  corvex library create FILE                  make an empty library
  corvex library list FILE                    names and files of the entries
  corvex library validate FILE                check the file, every entry and every texture
  corvex library add FILE.cvt IMAGE...        add textures
  corvex library add FILE.cvm --name NAME [--material KEY=VALUE]...
                                              add a material
  corvex library import FILE.cvm SOURCE...
                                              add the materials of libraries, documents, models and
                                              other files; FILE is made if there is none
  corvex library export FILE.cvm --out TARGET
                                              write materials to another file
  corvex library thumbnails FILE [--missing] [--out FOLDER]
                                              draw the thumbnails anew, or into PNG files
  corvex library remove FILE NAME...          into the library's trash
  corvex library restore FILE NAME...         out of it
  corvex library trash FILE                   what is in the trash
  corvex library empty-trash FILE             remove that for good

Options of library:
  --find QUERY   only entries that a search finds, as 'transparency>30 has:bump'
  --shard I/N    only every N-th entry, beginning with the I-th: one of N processes
  --json         one JSON object per line on standard output
)";

QString TrLibrary(const char* text)
{
    return QCoreApplication::translate("LibraryCommand", text);
}

QString CommandNames()
{
    QStringList names;
    for (const LibraryCommandRow& use : kLibraryCommands) {
        names << QLatin1String(use.name);
    }
    return names.join(QStringLiteral(", "));
}

std::optional<Shard> ShardFrom(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("^(\\d{1,6})/(\\d{1,6})$"));
    const auto match = pattern.match(text);
    const Shard shard{match.captured(1).toInt(), match.captured(2).toInt()};
    const bool fits = shard.number >= 1 && shard.number <= shard.count;
    return match.hasMatch() && fits ? std::optional(shard) : std::nullopt;
}

std::optional<QString> WrongAdd(const LibraryJob& job)
{
    if (LibraryKindOf(job.library.toStdString()) == LibraryKind::Materials) {
        return job.operands.isEmpty()
                   ? std::nullopt
                   : std::optional(TrLibrary("library add takes images for a .cvt file only."));
    }
    if (job.operands.isEmpty()) {
        return TrLibrary("library add needs the images for a .cvt file.");
    }
    return job.name.isEmpty() && job.assignments.isEmpty()
               ? std::nullopt
               : std::optional(
                     TrLibrary("library add takes --name and --material for a .cvm file only."));
}

// What is wrong with a complete job.
std::optional<QString> WrongUse(const LibraryJob& job)
{
    const auto use = std::ranges::find_if(kLibraryCommands, [&](const LibraryCommandRow& row) {
        return job.command == QLatin1String(row.name);
    });
    if (use == kLibraryCommands.end()) {
        return TrLibrary("library needs one of %1.").arg(CommandNames());
    }
    if (job.library.isEmpty()) {
        return TrLibrary("library %1 needs the file of a library.").arg(job.command);
    }
    if (job.operands.size() < use->leastOperands || job.operands.size() > use->mostOperands) {
        return use->mostOperands == 0 ? TrLibrary("library %1 takes one file.").arg(job.command)
                                      : TrLibrary("library %1 needs more names.").arg(job.command);
    }
    if (use->needsOut && job.out.isEmpty()) {
        return TrLibrary("library %1 needs --out.").arg(job.command);
    }
    if (job.command == QStringLiteral("add")) {
        if (const auto wrong = WrongAdd(job)) {
            return wrong;
        }
    }
    const QueryReading query = ReadLibraryQuery(job.query.toStdString());
    if (const auto* problem = std::get_if<std::string>(&query)) {
        return QStringLiteral("--find: %1").arg(QString::fromStdString(*problem));
    }
    return FirstWrongAssignment(job.assignments);
}

struct LibraryOptions {
    QCommandLineOption out{QStringLiteral("out"), {}, QStringLiteral("file")};
    QCommandLineOption find{QStringLiteral("find"), {}, QStringLiteral("query")};
    QCommandLineOption name{QStringLiteral("name"), {}, QStringLiteral("name")};
    QCommandLineOption material{QStringLiteral("material"), {}, QStringLiteral("key=value")};
    QCommandLineOption shard{
        QStringLiteral("shard"), {}, QStringLiteral("i/n"), QStringLiteral("1/1")};
    QCommandLineOption json{QStringLiteral("json")};
    QCommandLineOption missing{QStringLiteral("missing")};
};

}  // namespace

std::variant<LibraryJob, QString> ReadLibraryCommand(const QStringList& arguments)
{
    const LibraryOptions options;
    QCommandLineParser parser;
    parser.addOptions({options.out, options.find, options.name, options.material, options.shard,
                       options.json, options.missing});
    // The parser takes the first argument for the program's name.
    if (!parser.parse(QStringList(QStringLiteral("library")) + arguments)) {
        return parser.errorText() + u'.';
    }
    const QStringList words = parser.positionalArguments();
    const auto shard = ShardFrom(parser.value(options.shard));
    if (!shard) {
        return TrLibrary("--shard must be like 2/8: the second of eight.");
    }
    LibraryJob job{words.value(0),
                   words.value(1),
                   words.mid(2),
                   parser.value(options.out),
                   parser.value(options.find),
                   parser.value(options.name),
                   parser.values(options.material),
                   *shard,
                   parser.isSet(options.json),
                   parser.isSet(options.missing)};
    if (const auto wrong = WrongUse(job)) {
        return *wrong;
    }
    return job;
}

const char* LibraryHelp()
{
    return kLibraryHelp;
}

}  // namespace studio
