#include "NumberField.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

namespace studio {
namespace {

// A group separator is refused: with it "1.5" would be fifteen where the dot separates thousands.
std::optional<double> NumberIn(const QString& text)
{
    bool isNumber = false;
    double value = QLocale::c().toDouble(text, &isNumber);
    if (!isNumber) {
        QLocale own;
        own.setNumberOptions(QLocale::RejectGroupSeparator);
        value = own.toDouble(text, &isNumber);
    }
    return isNumber && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

}  // namespace

std::string NumberField::Accept(const std::string& text, const CorvexCommon::NumericRange& range)
{
    const double typed = NumberIn(QString::fromStdString(text).trimmed())
                             .value_or(static_cast<double>(range.defaultValue));
    // A range whose ends are swapped holds its minimum only.
    const double minimum = range.minimum;
    const double maximum = std::max<double>(range.minimum, range.maximum);
    return QString::number(std::clamp(typed, minimum, maximum), 'f', std::max(range.decimals, 0))
        .toStdString();
}

}  // namespace studio
