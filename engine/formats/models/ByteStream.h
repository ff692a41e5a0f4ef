#pragma once

#include <CorvexMaterial/Status.h>

#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace studio {

class ByteWriter {
public:
    template <typename Value>
    void Put(const Value& value)
    {
        static_assert(std::is_trivially_copyable_v<Value>);
        m_bytes.append(reinterpret_cast<const char*>(&value), sizeof(Value));
    }

    template <typename Value>
    void PutAll(const std::vector<Value>& values)
    {
        static_assert(std::is_trivially_copyable_v<Value>);
        m_bytes.append(reinterpret_cast<const char*>(values.data()),
                       static_cast<qsizetype>(values.size()) * qsizetype{sizeof(Value)});
    }

    void PutText(std::string_view text)
    {
        Put(static_cast<std::uint32_t>(text.size()));
        m_bytes.append(text.data(), static_cast<qsizetype>(text.size()));
    }

    [[nodiscard]] QByteArray Take() { return std::move(m_bytes); }

private:
    QByteArray m_bytes;
};

/// Reads values one after the other. Errors: FileFailed where the bytes end too early.
class ByteReader {
public:
    explicit ByteReader(std::span<const std::byte> bytes) : m_rest(bytes) {}

    template <typename Value>
    [[nodiscard]] Value Get()
    {
        static_assert(std::is_trivially_copyable_v<Value>);
        Value value;
        std::memcpy(&value, Claim(sizeof(Value)).data(), sizeof(Value));
        return value;
    }

    template <typename Value>
    [[nodiscard]] std::vector<Value> GetAll(std::size_t count)
    {
        static_assert(std::is_trivially_copyable_v<Value>);
        if (count > m_rest.size() / sizeof(Value)) {
            Truncated();
        }
        const auto bytes = Claim(count * sizeof(Value));
        std::vector<Value> values(count);
        if (count > 0) {
            std::memcpy(values.data(), bytes.data(), bytes.size());
        }
        return values;
    }

    /// A count of things that each take at least so many bytes.
    [[nodiscard]] std::size_t GetCount(std::size_t bytesEach)
    {
        const std::size_t count = Get<std::uint32_t>();
        if (count > m_rest.size() / bytesEach) {
            Truncated();
        }
        return count;
    }

    [[nodiscard]] std::string GetText()
    {
        const std::vector<char> text = GetAll<char>(Get<std::uint32_t>());
        return {text.begin(), text.end()};
    }

    [[nodiscard]] bool AtEnd() const { return m_rest.empty(); }

private:
    [[noreturn]] static void Truncated()
    {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed, "the data ends too early");
    }

    std::span<const std::byte> Claim(std::size_t size)
    {
        if (size > m_rest.size()) {
            Truncated();
        }
        const auto claimed = m_rest.first(size);
        m_rest = m_rest.subspan(size);
        return claimed;
    }

    std::span<const std::byte> m_rest;
};

}  // namespace studio
