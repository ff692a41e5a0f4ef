#include "DatabaseError.h"

#include <CorvexMaterial/Status.h>

namespace studio {
namespace {

/// What is being made is called what it will be.
std::string ShownPath(const std::string& path)
{
    constexpr std::string_view kUnfinished = ".saving";
    if (!path.ends_with(kUnfinished)) {
        return path;
    }
    const std::size_t name = path.rfind('/') + 1;
    return path.substr(0, name) +
           path.substr(name + 1, path.size() - name - 1 - kUnfinished.size());
}

}  // namespace

void ThrowDatabaseError(const std::string& path, const std::string& cause)
{
    const std::string shown = ShownPath(path);
    const std::string noun = shown.ends_with(".corvex") ? "Document" : "Library";
    throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed,
                                noun + " '" + shown + "': " + cause + '.');
}

}  // namespace studio
