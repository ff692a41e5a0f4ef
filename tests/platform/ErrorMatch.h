#pragma once

#include "Testing.h"
#include <CorvexMaterial/Status.h>

/// What the call reported as a failed file; nothing when it succeeded. Anything else fails.
inline std::optional<std::string> FileFailure(const std::function<void()>& call)
{
    try {
        call();
    } catch (const CorvexMaterial::Error& error) {
        EXPECT_EQ(error.Code(), CorvexMaterial::Status::FileFailed);
        return error.what();
    }
    return std::nullopt;
}
