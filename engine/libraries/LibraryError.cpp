#include "LibraryError.h"

#include <CorvexMaterial/Status.h>

namespace studio {

void ThrowLibraryError(const std::string& path, const std::string& cause)
{
    throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed,
                                "Library '" + path + "': " + cause + '.');
}

}  // namespace studio
