#include "GuardedFiles.h"

#include "DocumentFile.h"
#include "ImportAllowance.h"
#include "RegularFile.h"

#include <assimp/IOStream.hpp>

#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>

namespace studio {
namespace {

class GuardedStream final : public Assimp::IOStream {
public:
    GuardedStream(std::FILE* file, std::int64_t size)
        : m_file(file), m_size(static_cast<std::size_t>(size))
    {
    }
    ~GuardedStream() override { std::fclose(m_file); }
    GuardedStream(const GuardedStream&) = delete;
    GuardedStream& operator=(const GuardedStream&) = delete;

    std::size_t Read(void* buffer, std::size_t size, std::size_t count) override
    {
        return std::fread(buffer, size, count, m_file);
    }
    std::size_t Write(const void*, std::size_t, std::size_t) override { return 0; }
    aiReturn Seek(std::size_t offset, aiOrigin origin) override
    {
        static constexpr std::array kOrigins{SEEK_SET, SEEK_CUR, SEEK_END};
        const int from = kOrigins.at(static_cast<std::size_t>(origin));
        return std::fseek(m_file, static_cast<long>(offset), from) == 0 ? aiReturn_SUCCESS
                                                                        : aiReturn_FAILURE;
    }
    std::size_t Tell() const override { return static_cast<std::size_t>(std::ftell(m_file)); }
    std::size_t FileSize() const override { return m_size; }
    void Flush() override {}

private:
    std::FILE* m_file;
    std::size_t m_size;
};

}  // namespace

bool GuardedFiles::Exists(const char* file) const
{
    // Whatever it is: the importer is to ask for it, and to be refused.
    std::error_code error;
    return std::filesystem::exists(file, error);
}

Assimp::IOStream* GuardedFiles::Open(const char* file, const char* mode)
{
    if (*mode != 'r') {
        return nullptr;
    }
    CorvexMaterial::RegularFile regular(file, kMostModelFileBytes);
    if (!regular.Obstacle().empty()) {
        if (!regular.IsMissing() && m_refused.empty()) {
            m_refused = file + (": " + regular.Obstacle());
        }
        return nullptr;
    }
    // Each importer looks into a file before one of them reads it.
    if (m_opened.insert(file).second) {
        AllowTimeFor(regular.Size());
    }
    auto* const opened = ::fdopen(regular.Release(), "rb");
    return opened == nullptr ? nullptr : new GuardedStream(opened, regular.Size());
}

void GuardedFiles::Close(Assimp::IOStream* stream)
{
    delete stream;
}

}  // namespace studio
