#pragma once

// Plain records to JSON objects and back, after tables of their members.

#include <QJsonArray>
#include <QJsonObject>

#include <cstdint>
#include <limits>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

namespace studio {

struct NumberRange {
    double least = 0.0;
    double most = 0.0;
};
inline constexpr NumberRange kAnyInteger{std::numeric_limits<std::int32_t>::min(),
                                         std::numeric_limits<std::int32_t>::max()};
inline constexpr NumberRange kAnyFloat{std::numeric_limits<float>::lowest(),
                                       std::numeric_limits<float>::max()};

/// A row of a table: the range is for numbers and enumerations.
template <typename Record, typename Member>
struct JsonField {
    const char* key;
    Member Record::*member;
    NumberRange range{};
};
template <typename Record, typename Member>
JsonField(const char*, Member Record::*, NumberRange) -> JsonField<Record, Member>;
template <typename Record, typename Member>
JsonField(const char*, Member Record::*) -> JsonField<Record, Member>;

/// The double with the fewest digits that is this float again.
[[nodiscard]] double ShortNumber(float value);

/// Takes values out of an object. What is missing leaves its target as it is; what is of the wrong
/// type or out of range does so too and is a problem. An amount outside its range becomes the
/// nearest inside, which is a problem too.
class FieldReader {
public:
    /// The problems outlive the reader.
    FieldReader(QJsonObject object, std::vector<std::string>& problems)
        : m_object(std::move(object)), m_problems(&problems)
    {
    }

    void Read(const QString& key, NumberRange, bool& target);
    void Read(const QString& key, NumberRange, std::string& target);
    void Read(const QString& key, NumberRange range, std::int32_t& target);
    void Read(const QString& key, NumberRange range, float& target);
    template <typename Enum>
    requires std::is_enum_v<Enum>
    void Read(const QString& key, NumberRange range, Enum& target)
    {
        auto number = static_cast<std::int32_t>(target);
        Read(key, range, number);
        target = static_cast<Enum>(number);
    }

    /// One element of an array; the key is for the message.
    void Element(const QString& key, const QJsonValue& value, NumberRange range, float& target);
    [[nodiscard]] FieldReader Inside(const QString& key);  ///< empty when there is no such object
    /// An element of an array; the key is for the message.
    [[nodiscard]] FieldReader Inside(const QString& key, const QJsonValue& value);
    [[nodiscard]] QJsonArray Array(const QString& key);
    void Complain(const QString& key, const QString& what);

private:
    [[nodiscard]] QJsonValue Take(const QString& key, QJsonValue::Type type);
    [[nodiscard]] QJsonValue Checked(const QString& key, const QJsonValue& value,
                                     QJsonValue::Type type);

    QJsonObject m_object;
    std::vector<std::string>* m_problems;
};

template <typename Record, typename... Fields>
void ReadFields(FieldReader& reader, Record& record, const std::tuple<Fields...>& fields)
{
    std::apply(
        [&](const auto&... row) {
            (reader.Read(QLatin1String(row.key), row.range, record.*row.member), ...);
        },
        fields);
}

template <typename Value>
[[nodiscard]] QJsonValue JsonOf(const Value& value)
{
    if constexpr (std::is_same_v<Value, std::string>) {
        return QString::fromStdString(value);
    } else if constexpr (std::is_same_v<Value, float>) {
        return ShortNumber(value);
    } else if constexpr (std::is_enum_v<Value>) {
        return static_cast<std::int32_t>(value);
    } else {
        return value;
    }
}

template <typename Record, typename... Fields>
[[nodiscard]] QJsonObject JsonOfFields(const Record& record, const std::tuple<Fields...>& fields)
{
    QJsonObject json;
    std::apply(
        [&](const auto&... row) {
            (json.insert(QLatin1String(row.key), JsonOf(record.*row.member)), ...);
        },
        fields);
    return json;
}

template <typename Values>
[[nodiscard]] QJsonArray JsonArrayOf(const Values& values)
{
    QJsonArray array;
    for (const auto& value : values) {
        array.append(JsonOf(value));
    }
    return array;
}

}  // namespace studio
