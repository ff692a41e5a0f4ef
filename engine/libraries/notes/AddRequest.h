#pragma once

#include "EntryDetails.h"

#include <functional>
#include <string>

namespace studio {

/// What is about to be added to a library, as it is proposed and as the user wants it.
struct AddRequest {
    std::string name;
    std::string library;  ///< path
    EntryDetails details;
};

/// Lets the user change the request. False: nothing is to be added.
using AskBeforeAdding = std::function<bool(AddRequest&)>;

}  // namespace studio
