#pragma once

#include <CorvexMaterial/Files.h>

namespace CorvexMaterial {

class QtLibraryFiles final : public LibraryFiles {
public:
    bool Exists(const std::string& path) override;
    bool MakeWritable(const std::string& path) override;
    std::vector<std::string> NamesIn(const std::string& folder,
                                     const std::string& extension) override;
};

}  // namespace CorvexMaterial
