#pragma once

#include "Database.h"
#include "EntryMarks.h"

#include <map>
#include <optional>
#include <span>

namespace studio {

/// Favourites, ratings and what was used lately, of the entries of all libraries: one user's, in
/// one file of his own, which is made with the first of them. A library is known by its path.
/// One thread at a time.
class UserMarks {
public:
    explicit UserMarks(std::string file) : m_file(std::move(file)) {}

    /// Of the library at this path. Read once and again after `Forget`; what cannot be read counts
    /// as none.
    [[nodiscard]] const EntryMarks& Of(const std::string& library);
    /// Other programs may have written meanwhile.
    void Forget() { m_read.clear(); }

    // All in one change, on the disk when it returns. Errors: FileFailed, and nothing has changed.
    void SetFavourite(const std::string& library, std::span<const std::int64_t> ids, bool is);
    void SetRating(const std::string& library, std::span<const std::int64_t> ids, int rating);
    /// The latest few of a library are known.
    void SetUsed(const std::string& library, std::int64_t id);

private:
    template <typename Work>
    void Change(const std::string& library, std::span<const std::int64_t> ids, const Work& work);
    [[nodiscard]] bool IsThere() const;
    Database& Opened();
    EntryMarks Read(const std::string& library);

    std::string m_file;
    std::optional<Database> m_database;
    std::map<std::string, EntryMarks, std::less<>> m_read;
};

}  // namespace studio
