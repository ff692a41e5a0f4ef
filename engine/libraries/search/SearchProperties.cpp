#include "SearchProperties.h"

#include <QString>

#include <algorithm>
#include <span>

namespace studio {

const ColumnAttributes& AttributesOfColumns()
{
    static const ColumnAttributes attributes = [] {
        ColumnAttributes found{};
        std::ranges::transform(
            std::span(kNumberColumns).first<found.size()>(), found.begin(),
            [](std::string_view word) { return CorvexMaterial::FindAttribute(word)->attribute; });
        return found;
    }();
    return attributes;
}

std::string Folded(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))
        .toCaseFolded()
        .toStdString();
}

std::string FieldLine(std::string_view name, std::string_view value)
{
    return '\n' + Folded(name) + '=' + Folded(value) + '\n';
}

}  // namespace studio
