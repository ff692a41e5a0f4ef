#pragma once

#include <map>
#include <set>
#include <string>

namespace studio {

/// Names of which a document may hold each only once.
class UniqueNames {
public:
    /// The name, or the name with the first number that makes it new: "Oak", "Oak 2".
    [[nodiscard]] std::string Take(const std::string& name, const std::string& separator = " ");

private:
    std::set<std::string, std::less<>> m_taken;
    std::map<std::string, int, std::less<>> m_last;  ///< number given to a name
};

}  // namespace studio
