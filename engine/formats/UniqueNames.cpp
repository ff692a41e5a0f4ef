#include "UniqueNames.h"

namespace studio {

std::string UniqueNames::Take(const std::string& name, const std::string& separator)
{
    std::string unique = name;
    int& number = m_last.try_emplace(name, 1).first->second;
    while (!m_taken.insert(unique).second) {
        unique = name + separator + std::to_string(++number);
    }
    return unique;
}

}  // namespace studio
