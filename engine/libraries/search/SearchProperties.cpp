#include "SearchProperties.h"

#include <QString>

namespace studio {

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
