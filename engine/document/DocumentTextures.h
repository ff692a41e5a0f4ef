#pragma once

#include "Database.h"
#include "DocumentSchema.h"

#include <QByteArray>

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace studio {

/// The pictures inside a document, and the files that stand for them: those that were embedded, or
/// that were put into the folder when the document was opened.
class DocumentTextures {
public:
    explicit DocumentTextures(std::string folder) : m_folder(std::move(folder)) {}

    /// Puts those inside into the folder, but for those that are there already. What cannot be put
    /// there is a problem, for a person. Errors: FileFailed for a damaged document.
    void Extract(Database& database, std::vector<std::string>& problems);

    /// Pictures whose files have gone are taken from another document; both outlive the next calls.
    void Follow(const DocumentTextures* former, Database* database)
    {
        m_former = former;
        m_formerDatabase = database;
    }

    /// The file belongs into the document whatever its user chose: it is only a copy of what was
    /// inside one.
    [[nodiscard]] bool IsExtracted(const std::string& file) const;
    /// What a material says in place of the file, which is put into the document if it is not there
    /// yet; nothing when it cannot be read.
    [[nodiscard]] std::optional<std::string> Embed(Database& database, const std::string& file);
    /// The file for what a material says; nothing where that is no embedded picture.
    [[nodiscard]] std::optional<std::string> FileOf(const std::string& stored) const;
    /// Takes all others out.
    void Keep(Database& database, const std::set<std::string>& stored);

private:
    struct Row {
        std::int64_t id = 0;
        std::string name;
        std::string identity;  ///< of the file when it was read
        std::string sha256;
    };

    [[nodiscard]] std::optional<QByteArray> ContentOf(const std::string& file) const;

    std::string m_folder;
    std::map<std::string, Row> m_rows;  ///< by file
    const DocumentTextures* m_former = nullptr;
    Database* m_formerDatabase = nullptr;
};

}  // namespace studio
