#pragma once

#include "EntryDetails.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <variant>

namespace studio {

/// Every n-th entry, beginning with entry i: what one of n processes takes on.
struct Shard {
    int number = 1;  ///< 1 to count
    int count = 1;

    [[nodiscard]] bool Has(std::int32_t index) const { return index % count == number - 1; }
};

/// What becomes of entries; what is not given stays.
struct EntryChanges {
    std::optional<QString> author;
    std::optional<QString> licence;
    std::optional<QString> source;
    QStringList tags;
    QStringList untags;
    QStringList collections;
    QStringList uncollects;
    // The user's own, not the library's.
    std::optional<bool> favourite{};
    std::optional<int> rating{};

    [[nodiscard]] bool AreOfTheLibrary() const
    {
        return author || licence || source || !tags.isEmpty() || !untags.isEmpty() ||
               !collections.isEmpty() || !uncollects.isEmpty();
    }
};
void Apply(const EntryChanges& changes, EntryDetails& details);

/// One `corvex library` command.
struct LibraryJob {
    QString command;
    QString library;
    QStringList operands;     ///< files or names, after the library
    QString out;              ///< file or folder
    QString query;            ///< only these entries; empty = all
    QString name;             ///< of a material to be added
    QStringList assignments;  ///< `key=value`, already checked
    Shard shard;
    bool json = false;
    bool missingOnly = false;
    EntryChanges changes{};
};

/// Arguments after the word `library`. A text says what is wrong with them.
[[nodiscard]] std::variant<LibraryJob, QString> ReadLibraryCommand(const QStringList& arguments);

/// For --help.
[[nodiscard]] const char* LibraryHelp();

}  // namespace studio
