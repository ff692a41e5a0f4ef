#pragma once

#include "host/Status.h"

namespace studio {

/// For what this studio does not do yet: the caller gets a status of its own and a clear text.
[[noreturn]] inline void NotOffered(const char* what)
{
    throw CorvexMaterial::Error(CorvexMaterial::Status::NotAvailable,
                                std::string("The studio does not offer this yet: ") + what);
}

}  // namespace studio
