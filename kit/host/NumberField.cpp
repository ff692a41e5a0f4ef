#include "NumberField.h"

#include <CorvexMaterial/NumberExpression.h>

#include <QString>

#include <algorithm>

namespace studio {

std::string NumberField::Accept(const std::string& text, const CorvexCommon::NumericRange& range)
{
    using CorvexMaterial::TypedNumber;
    const TypedNumber read = CorvexMaterial::ReadTyped(text);
    const bool isNumber = read.fault == TypedNumber::Fault::None;
    const double typed = isNumber ? read.value : static_cast<double>(range.defaultValue);
    // A range whose ends are swapped holds its minimum only.
    const double minimum = range.minimum;
    const double maximum = std::max<double>(range.minimum, range.maximum);
    return QString::number(std::clamp(typed, minimum, maximum), 'f', std::max(range.decimals, 0))
        .toStdString();
}

}  // namespace studio
