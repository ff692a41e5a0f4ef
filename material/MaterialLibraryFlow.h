#pragma once

#include "textures/LibraryFlow.h"

namespace CorvexMaterial {

class IMaterial;
class MaterialGatherer;

/// The material library: what is chosen fills the panel, and the panel's material is what Add
/// takes.
class MaterialLibraryFlow final : public LibraryFlow {
    Q_OBJECT

public:
    /// Both outlive the flow.
    MaterialLibraryFlow(const LibraryServices& services, IMaterial& control,
                        MaterialGatherer& gatherer);

private:
    void CreateFile(const std::string& path) override;
    void CloseFile() override;
    CorvexDB::LibraryContent OpenFile(const std::string& path) override;
    bool AddCurrent() override;
    void DeleteAt(std::int32_t index) override;
    void Take(std::int32_t index) override;

    IMaterial& m_control;
    MaterialGatherer& m_gatherer;
};

}  // namespace CorvexMaterial
