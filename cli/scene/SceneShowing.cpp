#include "Interchange.h"
#include "SceneCommandTable.h"
#include "SceneCommands.h"
#include "SourceReload.h"
#include "Tr.h"
#include <CorvexMaterial/Schema.h>

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <set>

namespace studio {
namespace {

QString Text(const std::string& text)
{
    return QString::fromStdString(text);
}

const char* WordOf(SourceState state)
{
    constexpr std::array kWords{"none", "unchanged", "changed", "missing"};
    return kWords.at(static_cast<std::size_t>(state));
}

void ShowMaterials(const std::vector<WornMaterial>& materials, const SceneContent& content,
                   CommandOutput& output)
{
    for (const WornMaterial& worn : materials) {
        QJsonArray wearers;
        for (const std::size_t place : worn.wearers) {
            wearers.append(Text(content.shapes[place].name));
        }
        const auto attributes = QByteArray::fromStdString(
            JsonOfMaterial(worn.applied.gathered->material, std::string()));
        QJsonObject json{{"material", Text(worn.name)},
                         {"shapes", wearers},
                         {"attributes", QJsonDocument::fromJson(attributes).object()}};
        QStringList columns{Tr("material"), Text(worn.name),
                            Tr("shapes: %1").arg(static_cast<qulonglong>(worn.wearers.size()))};
        if (const auto& identity = worn.applied.identity;
            identity != nullptr && identity->link != nullptr) {
            const LibraryLink& link = *identity->link;
            json["link"] = QJsonObject{{"library", Text(link.library)}, {"entry", Text(link.name)}};
            columns << Tr("linked to: %1, %2").arg(Text(link.library), Text(link.name));
        }
        output.Result(json, columns);
    }
}

void ShowShapes(const std::vector<WornMaterial>& materials, const SceneContent& content,
                CommandOutput& output)
{
    std::vector<const WornMaterial*> wornAt(content.shapes.size());
    for (const WornMaterial& worn : materials) {
        for (const std::size_t place : worn.wearers) {
            wornAt[place] = &worn;
        }
    }
    for (std::size_t place = 0; place < content.shapes.size(); ++place) {
        const ShapeState& shape = content.shapes[place];
        const QString material = Text(wornAt[place]->name);
        const bool isWrapped = shape.applied.coordinates == CorvexSG::CoordinateMode::FromWrap;
        const auto triangles =
            static_cast<qint64>(shape.mesh == nullptr ? 0 : shape.mesh->indices.size() / 3);
        output.Result(
            {{"shape", Text(shape.name)},
             {"material", material},
             {"triangles", triangles},
             {"coordinates", isWrapped ? "wrap" : "mesh"},
             {"selected", std::ranges::count(content.selection, place) > 0}},
            {Tr("shape"), Text(shape.name), material, Tr("triangles: %1").arg(triangles)});
    }
}

void ShowTextures(const SceneContent& content, CommandOutput& output)
{
    const std::vector<std::string> missing = TexturesNotFound(ShapesOf(content));
    std::set<std::string> files;
    for (const ShapeState& shape : content.shapes) {
        for (const CorvexMaterial::Attribute layer : CorvexMaterial::kTextureFiles) {
            const auto& path = CorvexMaterial::RowOf(layer).path;
            files.insert(std::get<std::string>(path.get(shape.applied.gathered->material)));
        }
    }
    files.erase(std::string());
    for (const std::string& file : files) {
        const bool isFound = std::ranges::find(missing, file) == missing.end();
        output.Result({{"texture", Text(file)}, {"found", isFound}},
                      {Tr("texture"), Text(file), isFound ? Tr("found") : Tr("missing")});
    }
}

void ShowCameraAndSource(const SceneContent& content, CommandOutput& output)
{
    if (content.camera) {
        const Camera& camera = *content.camera;
        const QJsonArray target{static_cast<double>(camera.target.x()),
                                static_cast<double>(camera.target.y()),
                                static_cast<double>(camera.target.z())};
        const QString text = Tr("yaw %1, pitch %2, distance %3")
                                 .arg(camera.yawDegrees)
                                 .arg(camera.pitchDegrees)
                                 .arg(camera.distance);
        output.Result({{"camera", QJsonObject{{"target", target},
                                              {"yaw", static_cast<double>(camera.yawDegrees)},
                                              {"pitch", static_cast<double>(camera.pitchDegrees)},
                                              {"distance", static_cast<double>(camera.distance)}}}},
                      {Tr("camera"), text});
    }
    if (!content.source.path.empty()) {
        const QString state = QLatin1String(WordOf(StateOf(content.source)));
        output.Result({{"source", Text(content.source.path)}, {"state", state}},
                      {Tr("source"), Text(content.source.path), state});
    }
}

}  // namespace

void ShowScene(SceneContext& context)
{
    const SceneReading scene = ReadIn(context);
    const std::vector<WornMaterial> materials = MaterialsOf(scene.content);
    ShowShapes(materials, scene.content, context.output);
    ShowMaterials(materials, scene.content, context.output);
    ShowTextures(scene.content, context.output);
    ShowCameraAndSource(scene.content, context.output);
}

void ValidateScene(SceneContext& context)
{
    SceneReading scene = ReadIn(context);
    if (scene.document) {
        context.LookForDamage(*scene.document);
    }
    const SourceState source = StateOf(scene.content.source);
    if (source == SourceState::Changed || source == SourceState::Missing) {
        context.Loss(
            source == SourceState::Changed
                ? Tr("The source model %1 has changed since.").arg(Text(scene.content.source.path))
                : Tr("There is no source model %1 any more.").arg(Text(scene.content.source.path)));
    }
    const bool isGood = !context.output.HasProblems();
    const auto shapes = static_cast<qint64>(scene.content.shapes.size());
    context.output.Result({{"shapes", shapes}, {"good", isGood}},
                          {Tr("Shapes checked: %1.").arg(shapes)});
}

}  // namespace studio
