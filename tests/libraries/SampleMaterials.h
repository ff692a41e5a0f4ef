#pragma once

#include "LibraryFile.h"
#include "MaterialText.h"
#include "Testing.h"
#include <CorvexMaterial/Status.h>

namespace LibraryTest {

/// Every attribute different from its default.
[[nodiscard]] CorvexDB::udtMaterial WholeMaterial();

[[nodiscard]] studio::NewEntry EntryNamed(const std::string& name);

/// A new library in a folder of its own; in memory where the system has such a place, since every
/// change waits for a real disk.
class TemporaryLibrary {
public:
    explicit TemporaryLibrary(studio::LibraryKind kind = studio::LibraryKind::Materials);

    [[nodiscard]] std::string Path() const;
    [[nodiscard]] std::string PathOf(const char* name) const;
    [[nodiscard]] studio::LibraryFile Open() const;
    [[nodiscard]] QByteArray Bytes() const;
    void SetBytes(const QByteArray& bytes) const;

private:
    QTemporaryDir m_folder;
    studio::LibraryKind m_kind;
};

[[nodiscard]] std::vector<std::string> NamesIn(studio::LibraryFile& library);

/// The message of the Error that the work throws; empty when it throws none.
template <typename Work>
std::string ErrorOf(const Work& work)
{
    try {
        work();
        return {};
    } catch (const CorvexMaterial::Error& error) {
        return error.what();
    }
}

}  // namespace LibraryTest
