#include "JournalText.h"

#include "DocumentParts.h"
#include "RegularFile.h"
#include <CorvexMaterial/Status.h>

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <fstream>
#include <limits>

namespace studio {
namespace {

constexpr int kVersion = 1;
constexpr qsizetype kCheckLength = 16;
constexpr std::array kKinds{"default scene", "model", "document"};
static_assert(kKinds.size() == static_cast<std::size_t>(JournalBase::Kind::Document) + 1);

QByteArray CheckOf(QByteArrayView json)
{
    return QCryptographicHash::hash(QByteArray::fromRawData(json.data(), json.size()),
                                    QCryptographicHash::Sha256)
        .toHex()
        .first(kCheckLength);
}

std::string LineOf(const QJsonObject& object)
{
    const QByteArray json = QJsonDocument(object).toJson(QJsonDocument::Compact);
    return (CheckOf(json) + ' ' + json + '\n').toStdString();
}

QJsonObject ObjectIn(const QByteArray& json)
{
    return QJsonDocument::fromJson(json).object();
}

QJsonValue Text(const std::string& text)
{
    return QString::fromStdString(text);
}

QJsonValue Time(std::int64_t time)
{
    return static_cast<double>(time);
}

std::int64_t TimeOf(const QJsonValue& value)
{
    constexpr double kLatest = 9.0e15;
    const double time = value.toDouble();
    return time >= 0.0 && time <= kLatest ? static_cast<std::int64_t>(time) : 0;
}

std::string TextIn(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toString().toStdString();
}

[[noreturn]] void RefuseJournal(const char* cause)
{
    throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed, cause);
}

JournalHead HeadOf(const QJsonObject& line)
{
    const int version = line.value(QLatin1String("corvexEdits")).toInt();
    if (version > kVersion) {
        RefuseJournal("it was written by a later version of Corvex Studio");
    }
    const auto kind = std::ranges::find(kKinds, TextIn(line, "kind"));
    if (version < 1 || kind == kKinds.end()) {
        RefuseJournal("it is no file of edits");
    }
    JournalHead head;
    head.base.kind = static_cast<JournalBase::Kind>(kind - kKinds.begin());
    head.base.file = {TextIn(line, "path"), TimeOf(line.value(QLatin1String("bytes"))),
                      TimeOf(line.value(QLatin1String("modified")))};
    head.base.mark = TextIn(line, "mark");
    head.name = TextIn(line, "name");
    head.started = TimeOf(line.value(QLatin1String("started")));
    return head;
}

void ReadShapes(const QJsonArray& shapes, JournalContent& content)
{
    for (const QJsonValue& value : shapes) {
        const QJsonObject json = value.toObject();
        const int place = json.value(QLatin1String("place")).toInt(-1);
        if (place < 0) {
            RefuseJournal("it is damaged");
        }
        JournalContent::Shape& shape = content.shapes[static_cast<std::size_t>(place)];
        shape.name = TextIn(json, "name");
        shape.material = json.value(QLatin1String("material")).toInt(-1);
        if (const QJsonValue state = json.value(QLatin1String("state")); state.isObject()) {
            shape.state =
                QJsonDocument(state.toObject()).toJson(QJsonDocument::Compact).toStdString();
        }
    }
}

void ReadEdits(const QJsonObject& line, JournalContent& content)
{
    content.edits.made = TimeOf(line.value(QLatin1String("made")));
    content.edits.count = line.value(QLatin1String("edits")).toInt();
    content.edits.what = TextIn(line, "what");
    if (const QJsonValue camera = line.value(QLatin1String("camera")); camera.isObject()) {
        content.edits.camera = CameraOfJson(
            QJsonDocument(camera.toObject()).toJson(QJsonDocument::Compact).toStdString());
    }
    content.edits.views.reset();
    if (const QJsonValue views = line.value(QLatin1String("views")); views.isArray()) {
        content.edits.views = ViewsOfJson(
            QJsonDocument(views.toArray()).toJson(QJsonDocument::Compact).toStdString());
    }
    content.edits.textures.reset();
    if (const QJsonValue inside = line.value(QLatin1String("texturesInside")); inside.isBool()) {
        content.edits.textures =
            inside.toBool() ? TexturePlace::Embedded : TexturePlace::Referenced;
    }
    const QJsonObject saving = line.value(QLatin1String("saving")).toObject();
    content.edits.saving = {TextIn(saving, "path"), TimeOf(saving.value(QLatin1String("mark")))};
    const QJsonArray materials = line.value(QLatin1String("materials")).toArray();
    for (const QJsonValue& value : materials) {
        const QJsonObject json = value.toObject();
        content.materials[json.value(QLatin1String("id")).toInt(-1)] = {
            TextIn(json, "name"), json.value(QLatin1String("identity")).toInt(-1),
            json.value(QLatin1String("mode")).toInt(),
            QJsonDocument(json.value(QLatin1String("json")).toObject())
                .toJson(QJsonDocument::Compact)
                .toStdString()};
    }
    ReadShapes(line.value(QLatin1String("shapes")).toArray(), content);
}

/// SQLite counts there how often the file was changed.
std::string ChangeMark(const std::string& path)
{
    const int file =
        CorvexMaterial::RegularFile(path, std::numeric_limits<std::int64_t>::max()).Release();
    if (file < 0) {
        return {};
    }
    constexpr std::streamoff kCounter = 24;
    std::array<char, 4> counter{};
    std::ifstream stream("/proc/self/fd/" + std::to_string(file), std::ios::binary);
    stream.seekg(kCounter);
    stream.read(counter.data(), counter.size());
    return QByteArray(counter.data(), std::ssize(counter)).toHex().toStdString();
}

}  // namespace

JournalBase BaseAt(JournalBase::Kind kind, const std::string& path)
{
    JournalBase base{kind, {}, {}};
    if (kind != JournalBase::Kind::DefaultScene) {
        base.file = StampOf(path);
    }
    if (kind == JournalBase::Kind::Document) {
        base.mark = ChangeMark(path);
    }
    return base;
}

JournalWriting::JournalWriting(std::vector<ShapeState> base, std::string folder)
    : m_base(std::move(base)), m_folder(std::move(folder))
{
    for (std::size_t place = 0; place < m_base.size(); ++place) {
        m_identities.emplace(m_base[place].applied.identity, static_cast<int>(place));
    }
    m_identities[nullptr] = -1;
}

std::string JournalWriting::HeadLine(const JournalHead& head)
{
    return LineOf({{QStringLiteral("corvexEdits"), kVersion},
                   {QStringLiteral("kind"),
                    QLatin1String(kKinds.at(static_cast<std::size_t>(head.base.kind)))},
                   {QStringLiteral("path"), Text(head.base.file.path)},
                   {QStringLiteral("bytes"), Time(head.base.file.bytes)},
                   {QStringLiteral("modified"), Time(head.base.file.modified)},
                   {QStringLiteral("mark"), Text(head.base.mark)},
                   {QStringLiteral("name"), Text(head.name)},
                   {QStringLiteral("started"), Time(head.started)}});
}

void JournalWriting::BeginFile()
{
    m_materials.clear();
    m_moved.clear();
}

int JournalWriting::IdentityOf(const std::shared_ptr<const SceneMaterial>& identity)
{
    // Above all places.
    const auto next = static_cast<int>(m_base.size() + m_identities.size());
    return m_identities.emplace(identity, next).first->second;
}

std::string JournalWriting::EditsLine(const JournalEdits& edits,
                                      const std::map<std::size_t, EditedShape>& shapes)
{
    QJsonArray materialRows;
    QJsonArray shapeRows;
    for (const auto& [place, edited] : shapes) {
        const auto next = static_cast<int>(m_materials.size());
        const auto [row, isNew] = m_materials.emplace(KeyOf(edited.applied), next);
        if (isNew) {
            const SceneMaterial unnamed;
            const SceneMaterial& identity =
                edited.applied.identity != nullptr ? *edited.applied.identity : unnamed;
            materialRows.append(QJsonObject{
                {QStringLiteral("id"), row->second},
                {QStringLiteral("name"), Text(identity.name)},
                {QStringLiteral("identity"), IdentityOf(edited.applied.identity)},
                {QStringLiteral("mode"), static_cast<int>(edited.applied.gathered->applyMode)},
                {QStringLiteral("json"),
                 ObjectIn(
                     JsonOfSceneMaterial(edited.applied.gathered->material, identity, m_folder))}});
        }
        ShapeState state = m_base.at(place);
        QJsonObject shape{{QStringLiteral("place"), static_cast<int>(place)},
                          {QStringLiteral("name"), Text(state.name)},
                          {QStringLiteral("material"), row->second}};
        if (!edited.StandsAsIn(state) || m_moved.contains(place)) {
            m_moved.insert(place);
            edited.PutInto(state);
            shape.insert(QStringLiteral("state"), ObjectIn(JsonOfShape(state)));
        }
        shapeRows.append(shape);
    }
    QJsonObject line{{QStringLiteral("made"), Time(edits.made)},
                     {QStringLiteral("edits"), edits.count},
                     {QStringLiteral("what"), Text(edits.what)},
                     {QStringLiteral("materials"), materialRows},
                     {QStringLiteral("shapes"), shapeRows}};
    if (edits.camera) {
        line.insert(QStringLiteral("camera"), ObjectIn(JsonOfCamera(*edits.camera)));
    }
    if (edits.views) {
        line.insert(QStringLiteral("views"),
                    QJsonDocument::fromJson(JsonOfViews(*edits.views)).array());
    }
    if (edits.textures) {
        line.insert(QStringLiteral("texturesInside"), *edits.textures == TexturePlace::Embedded);
    }
    if (edits.saving.mark != 0) {
        line.insert(QStringLiteral("saving"),
                    QJsonObject{{QStringLiteral("path"), Text(edits.saving.path)},
                                {QStringLiteral("mark"), Time(edits.saving.mark)}});
    }
    return LineOf(line);
}

JournalContent ReadJournal(std::string_view text)
{
    JournalContent content;
    for (bool isHead = true; isHead || !text.empty(); isHead = false) {
        const std::size_t end = text.find('\n');
        const bool isLast = end == std::string_view::npos || end + 1 == text.size();
        const QByteArray line(text.data(), static_cast<qsizetype>(std::min(end, text.size())));
        const QByteArray json = line.mid(kCheckLength + 1);
        const bool isWhole = end != std::string_view::npos &&
                             CheckOf(json) == line.first(std::min(kCheckLength, line.size()));
        if (!isWhole && isHead) {
            RefuseJournal("it is no file of edits, or it is damaged");
        }
        if (!isWhole && !isLast) {
            RefuseJournal("it is damaged");
        }
        if (isWhole && isHead) {
            content.head = HeadOf(ObjectIn(json));
        } else if (isWhole) {
            ReadEdits(ObjectIn(json), content);
        }
        text.remove_prefix(isLast ? text.size() : end + 1);
    }
    return content;
}

}  // namespace studio
