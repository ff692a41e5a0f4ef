#pragma once

#include "LibraryFlow.h"

namespace CorvexMaterial {

class ChannelOwner;
class ChannelPanel;

/// The texture library: what is chosen goes to the layer of the current channel tab, and that
/// layer's file is what Add takes.
class TextureLibraryFlow final : public LibraryFlow {
    Q_OBJECT

public:
    /// Both outlive the flow.
    TextureLibraryFlow(const LibraryServices& services, ChannelPanel& channels,
                       ChannelOwner& owner);

private:
    void CreateFile(const std::string& path) override;
    void CloseFile() override;
    CorvexDB::LibraryContent OpenFile(const std::string& path) override;
    bool AddCurrent() override;
    void DeleteAt(std::int32_t index) override;
    void Take(std::int32_t index) override;

    ChannelPanel& m_channels;
    ChannelOwner& m_owner;
};

}  // namespace CorvexMaterial
