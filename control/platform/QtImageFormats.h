#pragma once

#include <CorvexMaterial/Files.h>

namespace CorvexMaterial {

class QtImageFormats final : public ImageFormats {
public:
    bool CanReadTiff() override;
    bool CanWriteJpeg() override;
};

}  // namespace CorvexMaterial
