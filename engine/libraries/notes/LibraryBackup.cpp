#include "LibraryBackup.h"

#include "Database.h"
#include "DatabaseError.h"
#include "FileWriting.h"
#include <CorvexMaterial/Status.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace studio {
namespace {

namespace fs = std::filesystem;

constexpr int kMostNames = 1000;

bool IsCopy(Database& database, const std::string& path)
{
    std::error_code none;
    if (!fs::is_regular_file(fs::symlink_status(path, none))) {
        return false;
    }
    std::ifstream copy(path, std::ios::binary);
    bool isSame = true;
    std::string there;
    database.ReadFile([&](std::span<const char> piece) {
        there.resize(piece.size());
        copy.read(there.data(), static_cast<std::streamsize>(there.size()));
        isSame = copy.good() && std::equal(piece.begin(), piece.end(), there.begin());
        return isSame;
    });
    return isSame && copy.peek() == std::ifstream::traits_type::eof();
}

}  // namespace

LibraryBackup::LibraryBackup(Database& database)
{
    const std::string first = database.Path() + ".v1-backup";
    m_path = first;
    std::error_code none;
    for (int number = 2; number < kMostNames && fs::exists(fs::symlink_status(m_path, none));
         ++number) {
        if (IsCopy(database, m_path)) {
            return;
        }
        m_path = first + '-' + std::to_string(number);
    }
    try {
        CorvexMaterial::FileWriter copy(m_path, CorvexMaterial::Lifetime::Lasting,
                                        CorvexMaterial::Existing::Kept);
        database.ReadFile([&copy](std::span<const char> piece) {
            copy.Write(piece);
            return true;
        });
        copy.Finish();
    } catch (const CorvexMaterial::Error& error) {
        ThrowDatabaseError(database.Path(),
                           "it has an older format and is copied before its first change, which "
                           "failed, so nothing was changed; " +
                               std::string(error.what()));
    }
    m_isMade = true;
}

LibraryBackup::~LibraryBackup()
{
    std::error_code ignored;
    if (m_isMade) {
        fs::remove(m_path, ignored);
    }
}

}  // namespace studio
