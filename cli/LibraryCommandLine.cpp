#include "LibraryCommandLine.h"

#include "CommandTable.h"
#include "EntryMarks.h"
#include "LibraryCommandTable.h"
#include "LibraryQuery.h"
#include "LibrarySchema.h"
#include "MaterialAssignment.h"

#include <QCommandLineParser>
#include <QRegularExpression>

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
  corvex library set FILE NAME... CHANGE...   change what is noted of entries, also of all that
                                              --find finds
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

Changes for set, and for what is added or imported:
  --tag TAG, --untag TAG                      may be given several times, as the next two
  --collection NAME, --uncollect NAME         into a collection of the library, or out of it
  --author TEXT, --licence TEXT, --source TEXT
  --favourite yes|no, --rating 0..5           your own, in no library; set only

Options of library:
  --find QUERY   only entries that a search finds, as 'transparency>30 has:bump tag:stone fav:yes'
  --shard I/N    only every N-th entry, beginning with the I-th: one of N processes
  --json         one JSON object per line on standard output
)";

constexpr CommandGroup kLibraryGroup{"library",
                                     QT_TRANSLATE_NOOP("Studio", "the file of a library"),
                                     QT_TRANSLATE_NOOP("Studio", "more names")};

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
                   : std::optional(Tr("library add takes images for a .cvt file only."));
    }
    if (job.operands.isEmpty()) {
        return Tr("library add needs the images for a .cvt file.");
    }
    return job.name.isEmpty() && job.assignments.isEmpty()
               ? std::nullopt
               : std::optional(Tr("library add takes --name and --material for a .cvm file only."));
}

// What is wrong with a job of the right words.
std::optional<QString> WrongUse(const LibraryJob& job)
{
    if (CommandNamed(kLibraryCommands, job.command)->needsOut && job.out.isEmpty()) {
        return Tr("library %1 needs --out.").arg(job.command);
    }
    if (job.command == QStringLiteral("add")) {
        if (const auto wrong = WrongAdd(job)) {
            return wrong;
        }
    }
    if (job.command == QStringLiteral("set")) {
        const EntryChanges& changes = job.changes;
        if (!changes.AreOfTheLibrary() && !changes.favourite && !changes.rating) {
            return Tr("library set needs what is to be changed, as --tag metal.");
        }
        if (job.operands.isEmpty() && job.query.isEmpty()) {
            return Tr("library set needs names of entries or --find.");
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
    QCommandLineOption author{QStringLiteral("author"), {}, QStringLiteral("text")};
    QCommandLineOption licence{QStringLiteral("licence"), {}, QStringLiteral("text")};
    QCommandLineOption source{QStringLiteral("source"), {}, QStringLiteral("text")};
    QCommandLineOption tag{QStringLiteral("tag"), {}, QStringLiteral("tag")};
    QCommandLineOption untag{QStringLiteral("untag"), {}, QStringLiteral("tag")};
    QCommandLineOption collection{QStringLiteral("collection"), {}, QStringLiteral("name")};
    QCommandLineOption uncollect{QStringLiteral("uncollect"), {}, QStringLiteral("name")};
    QCommandLineOption favourite{QStringLiteral("favourite"), {}, QStringLiteral("yes|no")};
    QCommandLineOption rating{QStringLiteral("rating"), {}, QStringLiteral("0..5")};
};

std::variant<EntryChanges, QString> ChangesIn(const QCommandLineParser& parser,
                                              const LibraryOptions& options)
{
    const auto given = [&parser](const QCommandLineOption& option) {
        return parser.isSet(option) ? std::optional(parser.value(option).simplified())
                                    : std::nullopt;
    };
    EntryChanges changes{given(options.author),           given(options.licence),
                         given(options.source),           parser.values(options.tag),
                         parser.values(options.untag),    parser.values(options.collection),
                         parser.values(options.uncollect)};
    if (const auto favourite = given(options.favourite)) {
        changes.favourite = *favourite == QStringLiteral("yes");
        if (!*changes.favourite && *favourite != QStringLiteral("no")) {
            return Tr("--favourite must be yes or no.");
        }
    }
    if (const auto rating = given(options.rating)) {
        bool isNumber = false;
        changes.rating = rating->toInt(&isNumber);
        if (!isNumber || *changes.rating < 0 || *changes.rating > kBestRating) {
            return Tr("--rating must be a number from 0 to 5; 0 takes it away.");
        }
    }
    return changes;
}

void Relabel(std::vector<std::string>& labels, const QStringList& gone, const QStringList& added)
{
    std::erase_if(labels, [&](const std::string& label) {
        return gone.contains(QString::fromStdString(label), Qt::CaseInsensitive);
    });
    for (const QString& label : added) {
        labels.push_back(label.toStdString());
    }
    labels = TidyLabels(labels);
}

}  // namespace

void Apply(const EntryChanges& changes, EntryDetails& details)
{
    const auto put = [](const std::optional<QString>& text, std::string& place) {
        place = text ? text->toStdString() : place;
    };
    put(changes.author, details.author);
    put(changes.licence, details.licence);
    put(changes.source, details.source);
    Relabel(details.tags, changes.untags, changes.tags);
    Relabel(details.collections, changes.uncollects, changes.collections);
}

std::variant<LibraryJob, QString> ReadLibraryCommand(const QStringList& arguments)
{
    const LibraryOptions options;
    QCommandLineParser parser;
    parser.addOptions({options.out, options.find, options.name, options.material, options.shard,
                       options.json, options.missing, options.author, options.licence,
                       options.source, options.tag, options.untag, options.collection,
                       options.uncollect, options.favourite, options.rating});
    // The parser takes the first argument for the program's name.
    if (!parser.parse(QStringList(QStringLiteral("library")) + arguments)) {
        return parser.errorText() + u'.';
    }
    const QStringList words = parser.positionalArguments();
    if (auto wrong = WrongWords(kLibraryGroup, kLibraryCommands, words)) {
        return *wrong;
    }
    const auto shard = ShardFrom(parser.value(options.shard));
    if (!shard) {
        return Tr("--shard must be like 2/8: the second of eight.");
    }
    const auto changes = ChangesIn(parser, options);
    if (const auto* wrong = std::get_if<QString>(&changes)) {
        return *wrong;
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
                   parser.isSet(options.missing),
                   std::get<EntryChanges>(changes)};
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
