#pragma once

#include "LibraryFile.h"

#include <QTemporaryDir>

#include <sqlite3.h>

/// A generated material library and a bare connection to it.
class SampleLibrary {
public:
    explicit SampleLibrary(int entries);
    ~SampleLibrary();
    SampleLibrary(const SampleLibrary&) = delete;
    SampleLibrary& operator=(const SampleLibrary&) = delete;

    [[nodiscard]] std::string Path() const;
    [[nodiscard]] sqlite3* Bare() const { return m_bare; }

    static studio::NewEntry Entry(int number);

private:
    QTemporaryDir m_folder;
    sqlite3* m_bare = nullptr;
};

/// Bare SQLite, compiled once and stepped to the end; returns the number of rows.
class BareStatement {
public:
    BareStatement(sqlite3* handle, const char* sql);
    ~BareStatement() { sqlite3_finalize(m_statement); }
    BareStatement(const BareStatement&) = delete;
    BareStatement& operator=(const BareStatement&) = delete;

    BareStatement& Bind(int parameter, std::int64_t value);
    BareStatement& Bind(int parameter, const std::string& text);
    [[nodiscard]] QByteArray Bytes();  ///< of the first column of the first row
    int Run();

private:
    sqlite3_stmt* m_statement = nullptr;
};
