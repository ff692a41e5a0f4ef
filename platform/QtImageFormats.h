#pragma once

#include "platform/Files.h"

namespace CorvexMaterial {

class QtImageFormats final : public ImageFormats {
public:
    bool CanReadTiff() override;
    bool CanWriteJpeg() override;
};

}  // namespace CorvexMaterial
