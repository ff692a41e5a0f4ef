#pragma once

#include <CorvexMaterial/CorvexCommon.h>

namespace studio {

/// Accepts what a number's field does, brings it into the range and writes it with the field's
/// decimals and a dot. Anything else becomes the default.
class NumberField : public CorvexCommon::NumericValidation {
public:
    std::string Accept(const std::string& text, const CorvexCommon::NumericRange& range) override;
};

}  // namespace studio
