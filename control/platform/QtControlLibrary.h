#pragma once

#include <CorvexMaterial/Files.h>

namespace CorvexMaterial {

class QtControlLibrary final : public ControlLibrary {
public:
    QtControlLibrary();
    std::string Folder() override;

private:
    std::string m_folder;
};

/// Lets Qt's image readers find the formats that are installed beside this library. For as long as
/// the application lives; doing it again does nothing.
void OfferImageFormats();

}  // namespace CorvexMaterial
