#include "DatabaseError.h"

#include <CorvexMaterial/Status.h>

namespace studio {

void ThrowDatabaseError(const std::string& path, const std::string& cause)
{
    const std::string noun = path.ends_with(".cvm") || path.ends_with(".cvt") ? "Library" : "File";
    throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed,
                                noun + " '" + path + "': " + cause + '.');
}

}  // namespace studio
