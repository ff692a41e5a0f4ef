#pragma once

#include "LibraryFlow.h"

#include <functional>

namespace CorvexMaterial {

class MaterialGatherer;

/// The material library: what is chosen fills the panel, and the panel's material is what Add
/// takes.
class MaterialLibraryFlow final : public LibraryFlow {
    Q_OBJECT

public:
    using Put = std::function<void(const CorvexDB::udtMaterial&)>;

    /// Both outlive the flow.
    MaterialLibraryFlow(const LibraryServices& services, MaterialGatherer& gatherer, Put put);

private:
    void CreateFile(const std::string& path) override;
    void CloseFile() override;
    CorvexDB::LibraryContent OpenFile(const std::string& path) override;
    bool AddCurrent() override;
    std::vector<CorvexDB::HostLibrary> HostLibraries() override;
    void DeleteAt(std::int32_t index) override;
    void Take(std::int32_t index) override;

    MaterialGatherer& m_gatherer;
    Put m_put;
};

}  // namespace CorvexMaterial
