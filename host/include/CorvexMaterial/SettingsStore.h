#pragma once

#include <optional>
#include <string>

namespace CorvexMaterial {

/// A setting's address. Keys are case-sensitive.
struct SettingAddress {
    std::string application;
    std::string section;
    std::string key;
};

/// Per-user text store.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;
    /// Nothing when the key is absent.
    virtual std::optional<std::string> Read(const SettingAddress& address) = 0;
    virtual void Write(const SettingAddress& address, const std::string& value) = 0;
    /// Puts all writes of the application on disk. Errors: FileFailed, naming the file.
    virtual void Flush(const std::string& application) = 0;
};

}  // namespace CorvexMaterial
