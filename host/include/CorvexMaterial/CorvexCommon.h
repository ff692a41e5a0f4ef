#pragma once

// The host's common controls. Buttons, tabs and up-down fields are Qt's own in this build; what is
// left of them for a host to decide is how a typed number is accepted.

#include <cstdint>
#include <string>

namespace CorvexCommon {

struct NumericRange {
    float defaultValue = 0.0F;
    float minimum = 0.0F;
    float maximum = 0.0F;
    std::int32_t decimals = 0;
};

class NumericValidation {
public:
    virtual ~NumericValidation() = default;
    /// The text that the field is to show instead of what was typed.
    virtual std::string Accept(const std::string& text, const NumericRange& range) = 0;
};

}  // namespace CorvexCommon
