#include "ProgramArguments.h"

#include "Interchange.h"
#include "MaterialAssignment.h"
#include "SceneWriters.h"
#include "StudioProfile.h"
#include "Tr.h"
#include <CorvexMaterial/PreviewPrimitives.h>

#include <QCommandLineParser>
#include <QRegularExpression>
#include <QUrl>

#include <algorithm>
#include <array>

namespace studio {
namespace {

using CorvexMaterial::RaytracerRow;
using CorvexMaterial::Raytracers;

constexpr const char* kHelp = R"(Usage:
  corvex-studio [FILE]                  open the studio, with a document, a model or a library
                                        if one is named; it answers the commands below, too
  corvex render [MODEL] --out FILE.png [options]
                                        draw a picture without a window
  corvex export %1 [MODEL] [options]
                                        write the scene for a raytracer
  corvex convert MODEL TARGET [--json] [--strict]
                                        write a model as %5, and tell what
                                        becomes of it
  corvex --version | --help
A MODEL is a file of another program or a scene document (.corvex).

Options of render and export:
  --size WxH             in pixels, 800x600 if not given, at most 8192x8192
  --raytrace             render with %2
  --raytracer NAME       render with %3; the variable
                         %4 names its program
  --primitive NAME       instead of a model: cube, cylinder, sphere, torus or cone
  --material KEY=VALUE   change the material of every shape; may be given several times
                         colour=Bronze (a name of the colour list) or colour=#8c7824
                         ambient, emissive, specular, transparency: per cent
                         doubleSided=yes|no; docs/libraries.md names every attribute
                         alphaTest=Greater (a name of its list) or its position 0 to 7
                         textures.primary=FILE
  --json                 one JSON object per line on standard output: what became of each
                         property, textures that cannot be read, losses, the file
  --strict               end with 1 when something is lost or a texture is missing

)";

constexpr const char* kConvertHelp = R"(Options of convert:
  --json                 one JSON object per line on standard output: textures that are
                         missing, the files, what became of each property, the counts
  --strict               end with 1 when something is dropped or a texture is missing

)";

constexpr const char* kExitCodes = R"(
Exit codes:
  0  done
  1  failed: a file cannot be read, a picture cannot be drawn or written, a library has a problem
  2  wrong usage
)";

QString SceneFiles(std::string_view between)
{
    return QString::fromStdString(CorvexMaterial::SceneNames("FILE", between));
}

CommandLine Refused(const QString& reason)
{
    CommandLine refused;
    refused.action = Action::Refuse;
    refused.text = reason;
    return refused;
}

CommandLine Shown(const QString& text)
{
    CommandLine shown;
    shown.action = Action::ShowText;
    shown.text = text;
    return shown;
}

std::optional<QSize> SizeFrom(const QString& text)
{
    constexpr int kLargest = 8192;
    static const QRegularExpression pattern(QStringLiteral("^(\\d{1,4})x(\\d{1,4})$"));
    const auto match = pattern.match(text);
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    const bool fits = !size.isEmpty() && size.width() <= kLargest && size.height() <= kLargest;
    return match.hasMatch() && fits ? std::optional(size) : std::nullopt;
}

std::optional<int> PrimitiveFrom(const QString& name)
{
    for (const auto& primitive : CorvexMaterial::kPreviewPrimitives) {
        if (name == QLatin1String(primitive.pictureKey.data(),
                                  static_cast<qsizetype>(primitive.pictureKey.size()))) {
            return primitive.code;
        }
    }
    return std::nullopt;
}

QString WordOf(const RaytracerRow& row)
{
    return QString::fromUtf8(row.word).toLower();
}

std::optional<CorvexDB::Raytracer> RaytracerNamed(const QString& word)
{
    for (const RaytracerRow& row : Raytracers()) {
        if (WordOf(row) == word) {
            return row.kind;
        }
    }
    return std::nullopt;
}

/// "a or b".
QString OfEachRaytracer(QString (*text)(const RaytracerRow& row))
{
    QStringList texts;
    for (const RaytracerRow& row : Raytracers()) {
        texts << text(row);
    }
    return texts.join(QStringLiteral(" or "));
}

struct RenderOptions {
    QCommandLineOption out{QStringLiteral("out"), {}, QStringLiteral("file")};
    QCommandLineOption size{
        QStringLiteral("size"), {}, QStringLiteral("WxH"), QStringLiteral("800x600")};
    QCommandLineOption primitive{QStringLiteral("primitive"), {}, QStringLiteral("name")};
    QCommandLineOption material{QStringLiteral("material"), {}, QStringLiteral("key=value")};
    QCommandLineOption raytrace{QStringLiteral("raytrace")};
    QCommandLineOption raytracer{QStringLiteral("raytracer"), {}, QStringLiteral("name")};
    QCommandLineOption json{QStringLiteral("json")};
    QCommandLineOption strict{QStringLiteral("strict")};

    void AddTo(QCommandLineParser& parser) const
    {
        parser.addOptions({out, size, primitive, material, raytrace, raytracer, json, strict});
    }
};

CommandLine CheckedRender(const QCommandLineParser& parser, const RenderOptions& options)
{
    CommandLine line;
    line.action = Action::Render;
    line.render.output = parser.value(options.out);
    line.render.assignments = parser.values(options.material);
    line.render.json = parser.isSet(options.json);
    line.render.strict = parser.isSet(options.strict);
    line.render.raytracer = RaytracerNamed(parser.value(options.raytracer));
    if (parser.isSet(options.raytracer) && !line.render.raytracer) {
        return Refused(Tr("--raytracer must be %1.").arg(OfEachRaytracer(WordOf)));
    }
    if (parser.isSet(options.raytrace) && !line.render.raytracer) {
        line.render.raytracer = Raytracers().front().kind;
    }
    const QStringList models = parser.positionalArguments();
    const auto size = SizeFrom(parser.value(options.size));
    const auto primitive = PrimitiveFrom(parser.value(options.primitive));
    if (line.render.output.isEmpty()) {
        return Refused(Tr("render needs --out FILE.png."));
    }
    if (!size) {
        return Refused(Tr("--size must be like 800x600, each side 1 to 8192."));
    }
    if (parser.isSet(options.primitive) && !primitive) {
        return Refused(Tr("--primitive must be cube, cylinder, sphere, torus or cone."));
    }
    if (models.size() + (primitive ? 1 : 0) != 1) {
        return Refused(Tr("render needs one model or --primitive NAME."));
    }
    if (const auto wrong = FirstWrongAssignment(line.render.assignments)) {
        return Refused(*wrong);
    }
    line.render.size = *size;
    line.render.model = models.value(0);
    line.render.primitive = primitive.value_or(line.render.primitive);
    return line;
}

CommandLine ReadRender(const QStringList& arguments)
{
    const RenderOptions options;
    QCommandLineParser parser;
    options.AddTo(parser);
    return parser.parse(arguments) ? CheckedRender(parser, options) : Refused(parser.errorText());
}

CommandLine ReadExport(const QStringList& arguments)
{
    const QString file = arguments.value(1);
    if (WriterFor(file) == nullptr) {
        return Refused(Tr("export needs %1 first.").arg(SceneFiles(" or ")));
    }
    QStringList rest = arguments.mid(2);
    rest << QStringLiteral("--out") << file;
    CommandLine line = ReadRender(QStringList(arguments.value(0)) + rest);
    line.action = line.action == Action::Render ? Action::Export : line.action;
    return line;
}

CommandLine ReadConvert(const QStringList& arguments)
{
    const QCommandLineOption json(QStringLiteral("json"));
    const QCommandLineOption strict(QStringLiteral("strict"));
    QCommandLineParser parser;
    parser.addOptions({json, strict});
    if (!parser.parse(arguments)) {
        return Refused(parser.errorText());
    }
    const QStringList files = parser.positionalArguments();
    if (files.size() != 2) {
        return Refused(Tr("convert needs a model and the file to write."));
    }
    if (!IsSceneFile(files.at(1).toStdString())) {
        return Refused(Tr("convert writes %1 files.").arg(SceneSuffixes(" or ")));
    }
    CommandLine line;
    line.action = Action::Convert;
    line.convert = {files.at(0), files.at(1), parser.isSet(json), parser.isSet(strict)};
    return line;
}

/// The commands of a group, and where their job goes.
template <auto ReadJob, Action kAction, auto kJob>
CommandLine ReadGroup(const QStringList& arguments)
{
    const auto job = ReadJob(arguments.mid(1));
    if (const auto* wrong = std::get_if<QString>(&job)) {
        return Refused(*wrong);
    }
    CommandLine line;
    line.action = kAction;
    line.*kJob = std::get<0>(job);
    return line;
}

CommandLine Help()
{
    const QString help = QString::fromUtf8(kHelp).arg(
        SceneFiles("|"), QString::fromUtf8(Raytracers().front().name), OfEachRaytracer(WordOf),
        OfEachRaytracer(
            [](const RaytracerRow& row) { return QString::fromUtf8(row.program.variable); }),
        SceneSuffixes("|"));
    return Shown(help + QLatin1String(kConvertHelp) + QLatin1String(SceneHelp()) +
                 QLatin1String(LibraryHelp()) + QLatin1String(kExitCodes));
}

CommandLine ReadWindow(const QStringList& arguments)
{
    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")});
    const QCommandLineOption version(QStringList{QStringLiteral("v"), QStringLiteral("version")});
    QCommandLineParser parser;
    parser.addOptions({help, version});
    if (!parser.parse(arguments)) {
        return Refused(parser.errorText());
    }
    if (parser.isSet(help)) {
        return Help();
    }
    if (parser.isSet(version)) {
        return Shown(QStringLiteral("corvex " CORVEX_VERSION "\n"));
    }
    if (parser.positionalArguments().size() > 1) {
        return Refused(Tr("The studio opens one model at a time."));
    }
    CommandLine line;
    line.model = parser.positionalArguments().value(0);
    return line;
}

/// File managers name files by their addresses.
QString WithoutAddress(const QString& argument)
{
    const QUrl address(argument);
    const bool here = address.host().isEmpty() || address.host() == QStringLiteral("localhost");
    return address.isLocalFile() && here ? address.path(QUrl::FullyDecoded) : argument;
}

struct CommandRow {
    const char* name;
    CommandLine (*read)(const QStringList& arguments);
};
constexpr std::array kCommands{
    CommandRow{"render", ReadRender}, CommandRow{"export", ReadExport},
    CommandRow{"convert", ReadConvert},
    CommandRow{"scene", ReadGroup<ReadSceneCommand, Action::Scene, &CommandLine::scene>},
    CommandRow{"library", ReadGroup<ReadLibraryCommand, Action::Library, &CommandLine::library>}};

}  // namespace

CommandLine ReadCommandLine(const QStringList& given)
{
    QStringList arguments = given;
    std::ranges::transform(arguments, arguments.begin(), WithoutAddress);
    const auto command = std::ranges::find_if(kCommands, [&](const CommandRow& row) {
        return arguments.value(0) == QLatin1String(row.name);
    });
    if (command != kCommands.end()) {
        const bool asksForHelp = arguments.contains(QStringLiteral("--help")) ||
                                 arguments.contains(QStringLiteral("-h"));
        return asksForHelp ? Help() : command->read(arguments);
    }
    // The parser takes the first argument for the program's name.
    return ReadWindow(QStringList(QLatin1String(kStudioName)) + arguments);
}

}  // namespace studio
