#include "SceneCommandLine.h"

#include "CommandTable.h"
#include "MaterialAssignment.h"
#include "SceneCommandTable.h"
#include "SceneReading.h"

#include <QCommandLineParser>

namespace studio {
namespace {

constexpr const char* kSceneHelp =
    R"(Scenes: documents (.corvex) and, where nothing is saved, models:
  corvex scene show FILE                      shapes, materials, textures, source model
  corvex scene validate FILE                  check the file, its textures and its source model
  corvex scene create MODEL --out FILE.corvex [--embed-textures]
                                              make a document of it
  corvex scene set FILE SHAPES KEY=VALUE...   change the materials of shapes
  corvex scene apply-library FILE LIBRARY ENTRY SHAPES
                                              give shapes a material of a library, or of any file
                                              that holds materials
  corvex scene reload FILE [--model MODEL]    read the source model again, or another in its place;
                                              shapes of the same name keep their materials

SHAPES is one or more of these; * stands for anything:
  --shape NAME       shapes of this name
  --material NAME    shapes whose material has this name
  --all              every shape

Options of scene:
  -o, --out FILE     save there, and leave the file as it is
  --json             one JSON object per line on standard output
  --strict           losses and missing textures are errors: nothing is saved then

)";

constexpr CommandGroup kSceneGroup{"scene", QT_TRANSLATE_NOOP("Studio", "a document or a model"),
                                   QT_TRANSLATE_NOOP("Studio", "what to give the shapes")};

std::optional<QString> WrongTarget(const SceneJob& job)
{
    if (!job.out.isEmpty() && !IsSceneDocument(job.out)) {
        return Tr("--out must be a scene document (.corvex).");
    }
    const bool needsOut = job.command == QStringLiteral("create") || !IsSceneDocument(job.file);
    return needsOut && job.out.isEmpty()
               ? std::optional(Tr("scene %1 needs --out FILE.corvex.").arg(job.command))
               : std::nullopt;
}

std::optional<QString> WrongSceneUse(const SceneJob& job)
{
    const SceneCommandRow* const row = CommandNamed(kSceneCommands, job.command);
    const bool choosesShapes = job.all || !job.shapes.isEmpty() || !job.materials.isEmpty();
    if (row->choosesShapes != choosesShapes) {
        return row->choosesShapes
                   ? Tr("scene %1 needs --shape, --material or --all.").arg(job.command)
                   : Tr("scene %1 takes the whole scene.").arg(job.command);
    }
    if (row->writes) {
        if (auto wrong = WrongTarget(job)) {
            return wrong;
        }
    }
    return job.command == QStringLiteral("set") ? FirstWrongAssignment(job.operands) : std::nullopt;
}

struct SceneOptions {
    QCommandLineOption out{
        {QStringLiteral("o"), QStringLiteral("out")}, {}, QStringLiteral("file")};
    QCommandLineOption model{QStringLiteral("model"), {}, QStringLiteral("file")};
    QCommandLineOption shape{QStringLiteral("shape"), {}, QStringLiteral("name")};
    QCommandLineOption material{QStringLiteral("material"), {}, QStringLiteral("name")};
    QCommandLineOption all{QStringLiteral("all")};
    QCommandLineOption embed{QStringLiteral("embed-textures")};
    QCommandLineOption json{QStringLiteral("json")};
    QCommandLineOption strict{QStringLiteral("strict")};
};

}  // namespace

std::variant<SceneJob, QString> ReadSceneCommand(const QStringList& arguments)
{
    const SceneOptions options;
    QCommandLineParser parser;
    parser.addOptions({options.out, options.model, options.shape, options.material, options.all,
                       options.embed, options.json, options.strict});
    // The parser takes the first argument for the program's name.
    if (!parser.parse(QStringList(QStringLiteral("scene")) + arguments)) {
        return parser.errorText() + u'.';
    }
    const QStringList words = parser.positionalArguments();
    if (auto wrong = WrongWords(kSceneGroup, kSceneCommands, words)) {
        return *wrong;
    }
    SceneJob job{words.value(0),
                 words.value(1),
                 words.mid(2),
                 parser.value(options.out),
                 parser.value(options.model),
                 parser.values(options.shape),
                 parser.values(options.material),
                 parser.isSet(options.all),
                 parser.isSet(options.embed),
                 parser.isSet(options.json),
                 parser.isSet(options.strict)};
    if (auto wrong = WrongSceneUse(job)) {
        return *wrong;
    }
    return job;
}

const char* SceneHelp()
{
    return kSceneHelp;
}

}  // namespace studio
