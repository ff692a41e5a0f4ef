#pragma once

#include <QString>
#include <QStringList>

#include <variant>

namespace studio {

/// Every n-th entry, beginning with entry i: what one of n processes takes on.
struct Shard {
    int number = 1;  ///< 1 to count
    int count = 1;

    [[nodiscard]] bool Has(std::int32_t index) const { return index % count == number - 1; }
};

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
};

/// Arguments after the word `library`. A text says what is wrong with them.
[[nodiscard]] std::variant<LibraryJob, QString> ReadLibraryCommand(const QStringList& arguments);

/// For --help.
[[nodiscard]] const char* LibraryHelp();

}  // namespace studio
