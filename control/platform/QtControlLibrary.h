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

}  // namespace CorvexMaterial
