#include "studio/libraries/JsonFields.h"

#include <QLocale>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace studio {

double ShortNumber(float value)
{
    std::array<char, 32> text{};
    const auto written = std::to_chars(text.data(), text.data() + text.size(), value);
    double number = 0.0;
    std::from_chars(text.data(), written.ptr, number);
    // JSON has no word for what is no number.
    return std::isfinite(number) ? number : 0.0;
}

void FieldReader::Read(const QString& key, NumberRange, bool& target)
{
    const QJsonValue value = Take(key, QJsonValue::Bool);
    target = value.toBool(target);
}

void FieldReader::Read(const QString& key, NumberRange, std::string& target)
{
    const QJsonValue value = Take(key, QJsonValue::String);
    if (!value.isUndefined()) {
        target = value.toString().toStdString();
    }
}

void FieldReader::Read(const QString& key, NumberRange range, std::int32_t& target)
{
    const QJsonValue value = Take(key, QJsonValue::Double);
    if (value.isUndefined()) {
        return;
    }
    const double number = value.toDouble();
    if (number != std::floor(number) || !(number >= range.least && number <= range.most)) {
        Complain(key, QStringLiteral("is out of its range"));
        return;
    }
    target = static_cast<std::int32_t>(number);
}

void FieldReader::Read(const QString& key, NumberRange range, float& target)
{
    const QJsonValue value = Take(key, QJsonValue::Double);
    if (!value.isUndefined()) {
        Element(key, value, range, target);
    }
}

void FieldReader::Element(const QString& key, const QJsonValue& value, NumberRange range,
                          float& target)
{
    const double number = value.toDouble(std::nan(""));
    if (number >= range.least && number <= range.most) {
        target = static_cast<float>(number);
        return;
    }
    // Too much of an amount is meant as much; what is no number, or beyond any, means nothing.
    if (std::isnan(number) || range.most == kAnyFloat.most) {
        Complain(key, QStringLiteral("is out of its range"));
        return;
    }
    const double nearest = std::clamp(number, range.least, range.most);
    Complain(key, QStringLiteral("is out of its range, %1 is taken").arg(nearest));
    target = static_cast<float>(nearest);
}

FieldReader FieldReader::Inside(const QString& key)
{
    return Inside(key, m_object.value(key));
}

FieldReader FieldReader::Inside(const QString& key, const QJsonValue& value)
{
    return {Checked(key, value, QJsonValue::Object).toObject(), *m_problems};
}

QJsonArray FieldReader::Array(const QString& key)
{
    return Take(key, QJsonValue::Array).toArray();
}

void FieldReader::Complain(const QString& key, const QString& what)
{
    m_problems->push_back(QStringLiteral("\"%1\" %2").arg(key, what).toStdString());
}

QJsonValue FieldReader::Take(const QString& key, QJsonValue::Type type)
{
    return Checked(key, m_object.value(key), type);
}

QJsonValue FieldReader::Checked(const QString& key, const QJsonValue& value, QJsonValue::Type type)
{
    if (value.isUndefined() || value.type() == type) {
        return value;
    }
    Complain(key, QStringLiteral("is of the wrong type"));
    return {QJsonValue::Undefined};
}

}  // namespace studio
