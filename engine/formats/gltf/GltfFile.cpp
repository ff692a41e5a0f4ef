#include "GltfFile.h"

#include "TextureReference.h"

#include <QJsonDocument>
#include <QUrl>
#include <QtEndian>

#include <algorithm>
#include <cstring>

namespace studio {
namespace {

struct ComponentRow {
    int type;
    std::size_t size;
    float most;  ///< what 1 is when normalised
};
constexpr int kSingle = 5126;
constexpr std::array kComponentRows{
    ComponentRow{5120, 1, 127.0F},   ComponentRow{5121, 1, 255.0F}, ComponentRow{5122, 2, 32767.0F},
    ComponentRow{5123, 2, 65535.0F}, ComponentRow{5125, 4, 1.0F},   ComponentRow{kSingle, 4, 1.0F},
};

const ComponentRow* RowOfType(int type)
{
    const auto* row = std::ranges::find(kComponentRows, type, &ComponentRow::type);
    return row == kComponentRows.end() ? nullptr : row;
}

std::size_t ComponentsOf(const QString& type)
{
    const bool isVector = type.size() == 4 && type.startsWith(u"VEC");
    return isVector ? static_cast<std::size_t>(std::clamp(type[3].digitValue(), 2, 4)) : 1;
}

/// 0 for what is no size.
std::size_t SizeIn(const QJsonValue& value)
{
    return static_cast<std::size_t>(std::clamp(value.toInteger(), qint64{0}, qint64{1} << 40));
}

template <typename Number>
Number NumberAt(const char* bytes)
{
    Number number;
    std::memcpy(&number, bytes, sizeof number);
    return number;
}

std::string NameOfUri(const QString& uri)
{
    return QUrl::fromPercentEncoding(uri.toUtf8()).toStdString();
}

}  // namespace

std::optional<QByteArray> DataOfUri(const QString& uri)
{
    if (!uri.startsWith(u"data:")) {
        return std::nullopt;
    }
    const qsizetype comma = uri.indexOf(u',');
    const QByteArray text = QStringView(uri).sliced(comma + 1).toLatin1();
    return QStringView(uri).first(std::max(comma, qsizetype{0})).endsWith(u";base64")
               ? QByteArray::fromBase64(text)
               : QByteArray::fromPercentEncoding(text);
}

GltfFile::GltfFile(const QByteArray& bytes, const std::string& path)
    : m_path(path), m_folder(FolderOfDocument(path))
{
    if (bytes.startsWith("glTF")) {
        ParseBinary(bytes);
    } else {
        ParseText(bytes);
    }
}

void GltfFile::Refuse(const char* cause) const
{
    RefuseDocument(m_path, cause);
}

void GltfFile::ParseBinary(const QByteArray& bytes)
{
    constexpr qsizetype kHead = 12;
    constexpr qsizetype kChunkHead = 8;
    constexpr std::uint32_t kText = 0x4E4F534A;
    constexpr std::uint32_t kData = 0x004E4942;
    qsizetype at = kHead;
    bool hasText = false;
    while (bytes.size() - at >= kChunkHead) {
        const qsizetype size = qFromLittleEndian<quint32>(bytes.constData() + at);
        const auto type = qFromLittleEndian<quint32>(bytes.constData() + at + 4);
        at += kChunkHead;
        if (size > bytes.size() - at) {
            Refuse("the file ends too early");
        }
        const auto chunk = QByteArray::fromRawData(bytes.constData() + at, size);
        if (type == kText && !hasText) {
            ParseText(chunk);
            hasText = true;
        } else if (type == kData && m_binary.isNull()) {
            m_binary = chunk;
        }
        at += size;
    }
    if (!hasText) {
        Refuse("the file holds no document");
    }
}

void GltfFile::ParseText(const QByteArray& bytes)
{
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (!document.isObject()) {
        Refuse(error.error == QJsonParseError::NoError ? "no object"
                                                       : error.errorString().toUtf8().constData());
    }
    m_root = document.object();
    if (!m_root[u"asset"].isObject()) {
        Refuse("it is no glTF document");
    }
    for (const QString& list : m_root.keys()) {
        m_lists[list] = m_root[list].toArray();
    }
}

QJsonObject GltfFile::At(const char* list, const QJsonValue& index) const
{
    const auto found = m_lists.find(QLatin1String(list));
    const qint64 number = index.toInteger(-1);
    return found != m_lists.end() && number >= 0 && number < found->second.size()
               ? found->second.at(number).toObject()
               : QJsonObject();
}

QByteArray GltfFile::Buffer(int index)
{
    const auto [known, isNew] = m_buffers.try_emplace(index);
    if (!isNew) {
        return known->second;
    }
    const QJsonObject buffer = At("buffers", index);
    const QString uri = buffer[u"uri"].toString();
    if (uri.isEmpty()) {
        return known->second = m_binary;
    }
    if (const auto data = DataOfUri(uri)) {
        return known->second = *data;
    }
    const auto& file = m_files.emplace_back(std::make_unique<ModelFile>(PathOf(uri)));
    if (!file->Obstacle().empty()) {
        RefuseDocument(m_path, NameOfUri(uri) + ": " + file->Obstacle());
    }
    return known->second = file->Bytes();
}

std::string GltfFile::PathOf(const QString& uri) const
{
    return FindReferenced(NameOfUri(uri), m_folder).path;
}

std::vector<std::string> GltfFile::DataFiles() const
{
    std::vector<std::string> files;
    for (const QJsonValue buffer : m_root[u"buffers"].toArray()) {
        const QString uri = buffer[u"uri"].toString();
        if (!uri.isEmpty() && !uri.startsWith(u"data:")) {
            files.push_back(PathOf(uri));
        }
    }
    return files;
}

QByteArray GltfFile::View(const QJsonValue& index)
{
    const QJsonObject view = At("bufferViews", index);
    const QByteArray buffer = Buffer(view[u"buffer"].toInt(-1));
    const std::size_t offset = SizeIn(view[u"byteOffset"]);
    const std::size_t length = SizeIn(view[u"byteLength"]);
    const auto all = static_cast<std::size_t>(buffer.size());
    if (offset > all || length > all - offset) {
        Refuse("a part of the data is missing");
    }
    return QByteArray::fromRawData(buffer.constData() + offset, static_cast<qsizetype>(length));
}

// The place of the values is the accessor itself, or what it says in place of some.
GltfFile::Elements GltfFile::ElementsOf(const QJsonObject& accessor, const QJsonObject& place)
{
    Elements elements;
    elements.type = (place.contains(u"componentType") ? place : accessor)[u"componentType"].toInt();
    elements.components = ComponentsOf(accessor[u"type"].toString());
    elements.normalised = accessor[u"normalized"].toBool();
    elements.count = SizeIn(place[u"count"]);
    const ComponentRow* row = RowOfType(elements.type);
    if (row == nullptr) {
        Refuse("the data is of an unknown kind");
    }
    const std::size_t size = row->size * elements.components;
    elements.stride =
        std::max(SizeIn(At("bufferViews", place[u"bufferView"])[u"byteStride"]), size);
    const QByteArray view = View(place[u"bufferView"]);
    const std::size_t offset = SizeIn(place[u"byteOffset"]);
    const auto all = static_cast<std::size_t>(view.size());
    const bool fits =
        elements.count == 0 || (offset <= all && size <= all - offset &&
                                (elements.count - 1) <= (all - offset - size) / elements.stride);
    if (!fits) {
        Refuse("a part of the data is missing");
    }
    elements.bytes = view.sliced(static_cast<qsizetype>(std::min(offset, all)));
    return elements;
}

float GltfFile::Elements::Number(std::size_t element, std::size_t component) const
{
    const ComponentRow& row = *RowOfType(type);
    const char* at = bytes.constData() + element * stride + component * row.size;
    float value = 0.0F;
    switch (type) {
    case 5120:
        value = NumberAt<std::int8_t>(at);
        break;
    case 5121:
        value = NumberAt<std::uint8_t>(at);
        break;
    case 5122:
        value = NumberAt<std::int16_t>(at);
        break;
    case 5123:
        value = NumberAt<std::uint16_t>(at);
        break;
    case 5125:
        value = static_cast<float>(NumberAt<std::uint32_t>(at));
        break;
    default:
        return NumberAt<float>(at);
    }
    return normalised ? std::max(value / row.most, -1.0F) : value;
}

std::uint32_t GltfFile::Elements::Whole(std::size_t element) const
{
    const char* at = bytes.constData() + element * stride;
    switch (RowOfType(type)->size) {
    case 1:
        return NumberAt<std::uint8_t>(at);
    case 2:
        return NumberAt<std::uint16_t>(at);
    default:
        return NumberAt<std::uint32_t>(at);
    }
}

template <std::size_t components>
std::vector<std::array<float, components>> GltfFile::Floats(const QJsonValue& index)
{
    const QJsonObject accessor = At("accessors", index);
    std::vector<std::array<float, components>> values;
    const auto put = [](const Elements& from, std::size_t element, auto& value) {
        if (from.type == kSingle && from.components >= components) {
            std::memcpy(value.data(), from.bytes.constData() + element * from.stride, sizeof value);
            return;
        }
        for (std::size_t i = 0; i < std::min(components, from.components); ++i) {
            value[i] = from.Number(element, i);
        }
    };
    if (accessor.contains(u"bufferView")) {
        const Elements elements = ElementsOf(accessor, accessor);
        values.resize(elements.count);
        for (std::size_t element = 0; element < elements.count; ++element) {
            put(elements, element, values[element]);
        }
    }
    if (const QJsonObject sparse = accessor[u"sparse"].toObject(); !sparse.isEmpty()) {
        values.resize(SizeIn(accessor[u"count"]));
        const auto placeOf = [&sparse](const char* part) {
            QJsonObject place = sparse[QLatin1String(part)].toObject();
            place[u"count"] = sparse[u"count"];
            return place;
        };
        const Elements places = ElementsOf({{"type", "SCALAR"}}, placeOf("indices"));
        const Elements replacements = ElementsOf(accessor, placeOf("values"));
        for (std::size_t element = 0; element < places.count; ++element) {
            if (const std::uint32_t place = places.Whole(element); place < values.size()) {
                put(replacements, element, values[place]);
            }
        }
    }
    return values;
}

template std::vector<std::array<float, 2>> GltfFile::Floats<2>(const QJsonValue&);
template std::vector<std::array<float, 3>> GltfFile::Floats<3>(const QJsonValue&);

std::vector<std::uint32_t> GltfFile::Indices(const QJsonValue& index)
{
    const QJsonObject accessor = At("accessors", index);
    if (!accessor.contains(u"bufferView")) {
        return {};
    }
    const Elements elements = ElementsOf(accessor, accessor);
    std::vector<std::uint32_t> values(elements.count);
    for (std::size_t element = 0; element < elements.count; ++element) {
        values[element] = elements.Whole(element);
    }
    return values;
}

}  // namespace studio
