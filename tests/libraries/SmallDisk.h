#pragma once

#include <string>

namespace LibraryTest {

/// A disk of 200 kB over a folder, until this goes. For this process and its children alone: in a
/// mount namespace of its own, which takes rights that not everybody has.
class SmallDisk {
public:
    explicit SmallDisk(std::string folder);
    ~SmallDisk();
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    [[nodiscard]] bool IsThere() const { return m_isThere; }

private:
    std::string m_folder;
    bool m_isThere = false;
};

}  // namespace LibraryTest
