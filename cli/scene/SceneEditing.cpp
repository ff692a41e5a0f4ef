#include "DefaultScene.h"
#include "HeadlessRender.h"
#include "LibraryQuery.h"
#include "MaterialAssignment.h"
#include "MaterialNames.h"
#include "MaterialText.h"
#include "SceneCommandTable.h"
#include "SceneCommands.h"
#include "SourceReload.h"
#include "Tr.h"
#include <CorvexMaterial/Schema.h>
#include <CorvexMaterial/Status.h>

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace studio {
namespace {

/// "Wheel*".
class NamePattern {
public:
    explicit NamePattern(const QString& text) : m_text(text)
    {
        QStringList parts = text.split(u'*');
        std::ranges::transform(parts, parts.begin(), [](const QString& part) {
            return QRegularExpression::escape(part);
        });
        m_expression = QRegularExpression(
            QRegularExpression::anchoredPattern(parts.join(QStringLiteral(".*"))),
            QRegularExpression::DotMatchesEverythingOption);
    }

    [[nodiscard]] bool Matches(const std::string& name)
    {
        const bool matches = m_expression.match(QString::fromStdString(name)).hasMatch();
        m_isUsed = m_isUsed || matches;
        return matches;
    }
    [[nodiscard]] bool IsUsed() const { return m_isUsed; }
    [[nodiscard]] const QString& Text() const { return m_text; }

private:
    QString m_text;
    QRegularExpression m_expression;
    bool m_isUsed = false;
};

std::vector<NamePattern> PatternsOf(const QStringList& texts)
{
    return {texts.begin(), texts.end()};
}

bool MatchesAny(std::vector<NamePattern>& patterns, const std::string& name)
{
    // Every pattern is asked, so that each knows whether it was of use.
    return std::ranges::count_if(patterns, [&](auto& each) { return each.Matches(name); }) > 0;
}

/// The shapes that the job names; a name that is none's is a problem.
ShapeList ChosenShapes(SceneContext& context, const ShapeList& scene)
{
    std::vector<NamePattern> shapes = PatternsOf(context.job.shapes);
    std::vector<NamePattern> materials = PatternsOf(context.job.materials);
    ShapeList chosen;
    std::ranges::copy_if(scene, std::back_inserter(chosen), [&](const auto& shape) {
        const auto& identity = shape->Applied().identity;
        const bool byShape = MatchesAny(shapes, shape->Name());
        const bool byMaterial = identity != nullptr && MatchesAny(materials, identity->name);
        return context.job.all || byShape || byMaterial;
    });
    const auto tellUnused = [&](const std::vector<NamePattern>& patterns, const QString& text) {
        for (const NamePattern& pattern : patterns) {
            if (!pattern.IsUsed()) {
                context.output.Problem(text.arg(context.job.file, pattern.Text()));
            }
        }
    };
    tellUnused(shapes, Tr("%1: there is no shape \"%2\"."));
    tellUnused(materials, Tr("%1: there is no material \"%2\"."));
    return chosen;
}

using Change =
    std::function<std::vector<ShapeChange>(const ShapeList& chosen, const ShapeList& scene)>;

void ChangeMaterials(SceneContext& context, const Change& change)
{
    SceneReading reading = ReadToWrite(context);
    const StudioScene::Shapes scene = ShapesOf(reading.content);
    const std::vector<ShapeChange> changes = change(ChosenShapes(context, scene), scene);
    for (const ShapeChange& each : changes) {
        each.shape->SetApplied(each.after);
    }
    for (std::size_t place = 0; place < scene.size(); ++place) {
        reading.content.shapes[place].applied = scene[place]->Applied();
    }
    WriteScene(context, reading);
    if (!context.output.HasProblems()) {
        const auto count = static_cast<qint64>(changes.size());
        context.output.Result({{"changed", count}}, {Tr("Shapes changed: %1.").arg(count)});
    }
}

void Assign(const QStringList& assignments, CorvexDB::udtMaterial& material)
{
    const CorvexDB::udtMaterial before = material;
    for (const QString& assignment : assignments) {
        static_cast<void>(AssignMaterial(material, assignment));
    }
    for (const CorvexMaterial::Attribute layer : CorvexMaterial::kTextureFiles) {
        const auto& path = CorvexMaterial::RowOf(layer).path;
        const std::string file = std::get<std::string>(path.get(material));
        if (!file.empty() && path.get(material) != path.get(before)) {
            const QFileInfo named(QString::fromStdString(file));
            path.set(material, named.absoluteFilePath().toStdString());
        }
    }
}

NamedMaterial EntryNamed(SceneContext& context, const QString& library, const QString& name)
{
    std::vector<std::string> notes;
    const std::vector<NamedMaterial> entries = ReadMaterials(library, ScenePictures(), notes);
    const std::string wanted = Folded(name.toStdString());
    const auto entry = std::ranges::find_if(
        entries, [&](const NamedMaterial& each) { return Folded(each.name) == wanted; });
    if (entry == entries.end()) {
        throw CorvexMaterial::Error(
            CorvexMaterial::Status::InvalidArgument,
            Tr("%1: there is no material \"%2\".").arg(library, name).toStdString());
    }
    for (const std::string& note : notes) {
        if (note.starts_with(entry->name + ": ")) {
            context.Loss(QString::fromStdString(note));
        }
    }
    return *entry;
}

void TellChanges(SceneContext& context, const ReloadedScene& scene)
{
    const auto tell = [&context](const char* change, const std::string& name,
                                 const std::string& former) {
        QJsonObject json{{"change", change}, {"shape", QString::fromStdString(name)}};
        QStringList columns{QLatin1String(change), QString::fromStdString(name)};
        if (!former.empty()) {
            json["former"] = QString::fromStdString(former);
            columns << Tr("was %1").arg(QString::fromStdString(former));
        }
        context.output.Result(json, columns);
    };
    for (const std::string& name : scene.added) {
        tell("added", name, {});
    }
    for (const auto& [former, name] : scene.renamed) {
        tell("renamed", name, former);
    }
    for (const std::string& name : scene.removed) {
        tell("removed", name, {});
        if (context.job.strict) {
            context.Loss(Tr("The model has no shape \"%1\".").arg(QString::fromStdString(name)));
        }
    }
}

}  // namespace

void CreateScene(SceneContext& context)
{
    SceneReading scene = ReadToWrite(context);
    if (context.job.embedsTextures) {
        scene.content.textures = TexturePlace::Embedded;
    }
    if (!scene.content.camera) {
        StudioScene shown;
        shown.SetShapes(ShapesOf(scene.content));
        scene.content.camera = shown.FramedBy(DefaultCamera());
        scene.content.picture = DocumentPicture(scene.content);
    }
    WriteScene(context, scene);
}

void SetInScene(SceneContext& context)
{
    ChangeMaterials(context, [&context](const ShapeList& chosen, const ShapeList& scene) {
        auto changes = ChangesBy(
            [&](CorvexDB::udtMaterial& material) { Assign(context.job.operands, material); },
            chosen);
        SplitShared(changes, scene);
        return changes;
    });
}

void ApplyLibraryToScene(SceneContext& context)
{
    const NamedMaterial entry =
        EntryNamed(context, context.job.operands.at(0), context.job.operands.at(1));
    AppliedMaterial given = WholeMaterial(entry.material);
    ChangeMaterials(context, [&](const ShapeList& chosen, const ShapeList& scene) {
        std::vector<ShapeChange> changes;
        for (const auto& shape : chosen) {
            given.coordinates = shape->Applied().coordinates;
            changes.push_back({shape, shape->Applied(), given});
        }
        ShareNamed(changes, entry.name, scene);
        return changes;
    });
}

void ReloadScene(SceneContext& context)
{
    SceneReading scene = ReadToWrite(context);
    const QString source = context.job.model.isEmpty()
                               ? QString::fromStdString(scene.content.source.path)
                               : context.job.model;
    if (source.isEmpty()) {
        throw CorvexMaterial::Error(
            CorvexMaterial::Status::InvalidArgument,
            Tr("%1 was made of no model; --model names one.").arg(context.job.file).toStdString());
    }
    SceneReading model = ReadScene(source, ScenePictures());
    const ReloadedScene reloaded =
        Reloaded(scene.content, std::move(model.content.shapes), model.content.source);
    TellChanges(context, reloaded);
    scene.content = reloaded.content;
    WriteScene(context, scene);
    if (!context.output.HasProblems()) {
        const auto kept = static_cast<qint64>(scene.content.shapes.size() - reloaded.added.size());
        context.output.Result({{"kept", kept}}, {Tr("Shapes kept: %1.").arg(kept)});
    }
}

}  // namespace studio
