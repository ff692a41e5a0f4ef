#include "JsonFields.h"

#include <QJsonArray>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace CorvexMaterial {
namespace {

constexpr qsizetype kMostNumbers = 10;
constexpr NumberRange kAnyInteger{std::numeric_limits<std::int32_t>::min(),
                                  std::numeric_limits<std::int32_t>::max()};
/// The raytracer's lists may be longer in the program that wrote the file.
constexpr NumberRange kAnyPosition{0, 1000};
constexpr NumberRange kAnySingle{std::numeric_limits<float>::lowest(),
                                 std::numeric_limits<float>::max()};

/// The double with the fewest digits that is this float again.
double ShortNumber(float value)
{
    std::array<char, 32> text{};
    const auto written = std::to_chars(text.data(), text.data() + text.size(), value);
    double number = 0.0;
    std::from_chars(text.data(), written.ptr, number);
    // JSON has no word for what is no number.
    return std::isfinite(number) ? number : 0.0;
}

bool IsWithin(double number, NumberRange range)
{
    return number >= range.least && number <= range.most;
}

/// What is wrong with a value that cannot be taken, or was not taken as it is.
using Problem = QString;
const auto kWrongType = QStringLiteral("is of the wrong type");
const auto kOutOfRange = QStringLiteral("is out of its range");

/// JSON to value, by the type of the value; nothing where it cannot be taken.
class JsonReader {
public:
    JsonReader(const AttributeRow& row, const QJsonValue& json, Problem& problem)
        : m_row(row), m_json(json), m_problem(problem)
    {
    }

    std::optional<AttributeValue> operator()(bool) const
    {
        return Is(QJsonValue::Bool) ? std::optional<AttributeValue>(m_json.toBool()) : std::nullopt;
    }

    std::optional<AttributeValue> operator()(const std::string&) const
    {
        return Is(QJsonValue::String)
                   ? std::optional<AttributeValue>(m_json.toString().toStdString())
                   : std::nullopt;
    }

    std::optional<AttributeValue> operator()(std::int32_t) const
    {
        const bool isRaytraced = m_row.group == AttributeGroup::Raytrace;
        const NumberRange range = m_row.kind == AttributeKind::WholeNumber ? kAnyInteger
                                  : isRaytraced                            ? kAnyPosition
                                                                           : m_row.range;
        const double number = m_json.toDouble();
        if (Is(QJsonValue::Double) && (number != std::floor(number) || !IsWithin(number, range))) {
            m_problem = kOutOfRange;
        }
        return m_problem.isEmpty()
                   ? std::optional<AttributeValue>(static_cast<std::int32_t>(number))
                   : std::nullopt;
    }

    std::optional<AttributeValue> operator()(float) const
    {
        const double number = m_json.toDouble();
        if (!Is(QJsonValue::Double)) {
            return std::nullopt;
        }
        // Too much of an amount is meant as much; what is beyond any number means nothing.
        if (m_row.group == AttributeGroup::Raytrace) {
            const double nearest = std::clamp(number, 0.0, m_row.range.most);
            if (nearest != number) {
                m_problem = kOutOfRange + QStringLiteral(", %1 is taken").arg(nearest);
            }
            return static_cast<float>(nearest);
        }
        return Single(m_json);
    }

    std::optional<AttributeValue> operator()(const std::vector<float>&) const
    {
        if (!Is(QJsonValue::Array)) {
            return std::nullopt;
        }
        const QJsonArray array = m_json.toArray();
        std::vector<float> numbers;
        for (const QJsonValue& element : array) {
            if (numbers.size() == kMostNumbers) {
                m_problem = QStringLiteral("has more than ten values");
                break;
            }
            numbers.push_back(Single(element).value_or(0.0F));
        }
        return numbers;
    }

    std::optional<AttributeValue> operator()(const CustomFieldValues&) const
    {
        if (!Is(QJsonValue::Array)) {
            return std::nullopt;
        }
        const QJsonArray array = m_json.toArray();
        CustomFieldValues texts;
        for (std::size_t i = 0; i < texts.size(); ++i) {
            const QJsonValue element = array.at(static_cast<qsizetype>(i));
            texts[i] = element.toString().toStdString();
            if (!element.isString() && !element.isUndefined()) {
                m_problem = QStringLiteral("holds something that is no text");
            }
        }
        return texts;
    }

private:
    [[nodiscard]] bool Is(QJsonValue::Type type) const
    {
        m_problem = m_json.type() == type ? Problem() : kWrongType;
        return m_problem.isEmpty();
    }

    [[nodiscard]] std::optional<float> Single(const QJsonValue& json) const
    {
        const double number = json.toDouble(std::nan(""));
        if (IsWithin(number, kAnySingle)) {
            return static_cast<float>(number);
        }
        m_problem = kOutOfRange;
        return std::nullopt;
    }

    const AttributeRow& m_row;
    const QJsonValue& m_json;
    Problem& m_problem;
};

struct JsonWriter {
    QJsonValue operator()(bool flag) const { return flag; }
    QJsonValue operator()(std::int32_t number) const { return number; }
    QJsonValue operator()(float number) const { return ShortNumber(number); }
    QJsonValue operator()(const std::string& text) const { return QString::fromStdString(text); }
    QJsonValue operator()(const std::vector<float>& numbers) const { return All(numbers); }
    QJsonValue operator()(const CustomFieldValues& texts) const { return All(texts); }

private:
    template <typename Several>
    QJsonArray All(const Several& several) const
    {
        QJsonArray array;
        for (const auto& value : several) {
            array.append((*this)(value));
        }
        return array;
    }
};

/// One level of the words: an attribute, or an object or array of further levels.
struct Level {
    QString name;
    const AttributeRow* row = nullptr;
    std::vector<Level> inner;

    [[nodiscard]] bool IsArray() const { return inner.front().name.at(0).isDigit(); }
    Level& Inner(const QString& wanted)
    {
        const auto known = std::ranges::find(inner, wanted, &Level::name);
        return known != inner.end() ? *known : inner.emplace_back(Level{wanted, nullptr, {}});
    }
};

const Level& Document()
{
    static const Level kDocument = [] {
        Level document;
        for (const AttributeRow& row : AttributeRows()) {
            Level* level = &document;
            const QString word = QString::fromUtf8(row.word.data(), std::ssize(row.word));
            for (const QString& name : word.split(u'.', Qt::SkipEmptyParts)) {
                level = &level->Inner(name);
            }
            level->row = row.word.empty() ? nullptr : &row;
        }
        return document;
    }();
    return kDocument;
}

bool IsUnusedLayer(const AttributeRow& row, const AttributeValue& value)
{
    const auto* const file = std::get_if<std::string>(&value);
    return row.group == AttributeGroup::Textures && file != nullptr && file->empty();
}

using Chosen = std::optional<std::span<const Attribute>>;

bool HasAny(const Level& level, std::span<const Attribute> attributes)
{
    const auto hasAny = [attributes](const Level& inner) { return HasAny(inner, attributes); };
    return level.row != nullptr
               ? std::ranges::find(attributes, level.row->attribute) != attributes.end()
               : std::ranges::any_of(level.inner, hasAny);
}

/// The chosen attributes, else all but layers without a file.
QJsonValue Written(const Level& level, const CorvexDB::udtMaterial& record, const Chosen& chosen)
{
    if (level.row != nullptr) {
        const AttributeValue value = level.row->path.get(record);
        return !chosen && IsUnusedLayer(*level.row, value) ? QJsonValue(QJsonValue::Undefined)
                                                           : JsonOf(value);
    }
    QJsonArray array;
    QJsonObject object;
    for (const Level& inner : level.inner) {
        if (chosen && !HasAny(inner, *chosen)) {
            continue;
        }
        const QJsonValue value = Written(inner, record, chosen);
        if (level.IsArray()) {
            array.append(value);
        } else if (!value.isUndefined()) {
            object.insert(inner.name, value);
        }
    }
    return level.IsArray() ? QJsonValue(array) : QJsonValue(object);
}

class RecordReader {
public:
    RecordReader(CorvexDB::udtMaterial& record, std::vector<std::string>& problems)
        : m_record(record), m_problems(problems)
    {
    }

    [[nodiscard]] const std::vector<Attribute>& Taken() const { return m_taken; }

    void Read(const Level& level, const QJsonValue& json)
    {
        if (json.isUndefined()) {
            return;
        }
        if (level.row != nullptr) {
            Take(level, json);
        } else if (json.type() != (level.IsArray() ? QJsonValue::Array : QJsonValue::Object)) {
            Complain(level.name, kWrongType);
        } else {
            const QJsonArray array = json.toArray();
            const QJsonObject object = json.toObject();
            for (const Level& inner : level.inner) {
                Read(inner,
                     level.IsArray() ? array.at(inner.name.toInt()) : object.value(inner.name));
            }
        }
    }

private:
    void Take(const Level& level, const QJsonValue& json)
    {
        const AttributeRow& row = *level.row;
        Problem problem;
        const auto value = std::visit(JsonReader(row, json, problem), row.path.get(m_record));
        if (value) {
            row.path.set(m_record, *value);
            m_taken.push_back(row.attribute);
        }
        if (!problem.isEmpty()) {
            Complain(level.name, problem);
        }
    }

    void Complain(const QString& key, const QString& what)
    {
        m_problems.push_back(QStringLiteral("\"%1\" %2").arg(key, what).toStdString());
    }

    CorvexDB::udtMaterial& m_record;
    std::vector<std::string>& m_problems;
    std::vector<Attribute> m_taken;
};

QJsonObject Unknown(const Level& level, const QJsonObject& json)
{
    QJsonObject unknown;
    for (auto member = json.begin(); member != json.end(); ++member) {
        const auto known = std::ranges::find(level.inner, member.key(), &Level::name);
        if (known == level.inner.end()) {
            unknown.insert(member.key(), member.value());
        } else if (known->row == nullptr && !known->IsArray()) {
            if (const QJsonObject inner = Unknown(*known, member.value().toObject());
                !inner.isEmpty()) {
                unknown.insert(member.key(), inner);
            }
        }
    }
    return unknown;
}

}  // namespace

QJsonValue JsonOf(const AttributeValue& value)
{
    return std::visit(JsonWriter(), value);
}

QJsonObject JsonOfRecord(const CorvexDB::udtMaterial& record)
{
    return Written(Document(), record, std::nullopt).toObject();
}

QJsonObject JsonOfAttributes(const CorvexDB::udtMaterial& record,
                             std::span<const Attribute> attributes)
{
    return Written(Document(), record, attributes).toObject();
}

std::vector<Attribute> ReadRecord(const QJsonObject& json, CorvexDB::udtMaterial& record,
                                  std::vector<std::string>& problems)
{
    RecordReader reader(record, problems);
    reader.Read(Document(), json);
    return reader.Taken();
}

QJsonObject UnknownFields(const QJsonObject& json)
{
    return Unknown(Document(), json);
}

QJsonObject WithUnknown(QJsonObject json, const QJsonObject& unknown)
{
    for (auto member = unknown.begin(); member != unknown.end(); ++member) {
        const QJsonValue present = json.value(member.key());
        if (present.isUndefined()) {
            json.insert(member.key(), member.value());
        } else if (present.isObject()) {
            json.insert(member.key(), WithUnknown(present.toObject(), member.value().toObject()));
        }
    }
    return json;
}

}  // namespace CorvexMaterial
