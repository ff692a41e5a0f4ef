#include "DatabaseError.h"

#include <CorvexMaterial/Status.h>

namespace studio {

void ThrowDatabaseError(const std::string& path, const std::string& cause)
{
    const bool isDocument = path.ends_with(".corvex") || path.ends_with(".saving");
    const std::string noun = isDocument ? "Document" : "Library";
    throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed,
                                noun + " '" + path + "': " + cause + '.');
}

}  // namespace studio
