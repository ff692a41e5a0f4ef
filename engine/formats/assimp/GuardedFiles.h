#pragma once

#include <assimp/IOSystem.hpp>

#include <cstdint>
#include <set>
#include <string>

namespace studio {

/// What an importer sees of the disk: regular files, to be read. A model may name any file as a
/// further one of its own.
class GuardedFiles final : public Assimp::IOSystem {
public:
    /// `refused` becomes the first file that is there but not read: its path, a colon, the cause.
    explicit GuardedFiles(std::string& refused) : m_refused(refused) {}

    bool Exists(const char* file) const override;
    char getOsSeparator() const override { return '/'; }
    Assimp::IOStream* Open(const char* file, const char* mode) override;
    void Close(Assimp::IOStream* stream) override;

private:
    std::string& m_refused;
    std::set<std::string> m_opened;
};

}  // namespace studio
