#pragma once

#include <CorvexMaterial/Files.h>

namespace CorvexMaterial {

class QtControlLibrary final : public ControlLibrary {
public:
    std::string Folder() override;
};

/// Lets Qt's image readers find the formats that are installed beside this library. For as long as
/// the application lives; doing it again does nothing.
void OfferImageFormats();

}  // namespace CorvexMaterial
