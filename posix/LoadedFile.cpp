#include "LoadedFile.h"

#include <dlfcn.h>

namespace CorvexMaterial {

std::string LoadedFile(const void* part)
{
    Dl_info info{};
    const bool isKnown = ::dladdr(part, &info) != 0 && info.dli_fname != nullptr;
    return isKnown ? info.dli_fname : "";
}

}  // namespace CorvexMaterial
