#include "studio/libraries/LibraryError.h"

#include "host/Status.h"

namespace studio {

void ThrowLibraryError(const std::string& path, const std::string& cause)
{
    throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed,
                                "Library '" + path + "': " + cause + '.');
}

}  // namespace studio
