#include "SceneDocument.h"

#include "DatabaseError.h"
#include "DocumentParts.h"
#include "DocumentRows.h"
#include "FileClaim.h"
#include "FileWriting.h"
#include "RegularFile.h"
#include "StoredPath.h"
#include <CorvexMaterial/Status.h>

#include <QFileInfo>

#include <filesystem>
#include <limits>

namespace studio {
namespace {

std::string CanonicalPath(const std::string& path)
{
    const QFileInfo file(QString::fromStdString(path));
    const QString canonical = file.canonicalFilePath();
    return (canonical.isEmpty() ? file.absoluteFilePath() : canonical).toStdString();
}

void RequireHeader(const std::string& path)
{
    if (const std::string cause = HeaderCause(path, DocumentKind()); !cause.empty()) {
        ThrowDatabaseError(path, cause);
    }
}

/// A file that is there is a plain one, and nobody else's.
CorvexMaterial::FileClaim ClaimToReplace(const std::string& file)
{
    CorvexMaterial::FileClaim claim;
    std::string cause = LengthCause(file);
    const CorvexMaterial::RegularFile there(file, std::numeric_limits<std::int64_t>::max());
    if (cause.empty() && !there.IsMissing()) {
        cause = there.Obstacle();
    }
    if (cause.empty() && !there.IsMissing()) {
        claim = CorvexMaterial::FileClaim(file);
        const std::error_code refusal = CorvexMaterial::WriteRefusal(file);
        cause = !claim.Held() ? "another window has it open" : refusal ? refusal.message() : "";
    }
    if (const auto refusal = CorvexMaterial::WriteRefusal(FolderOf(file));
        cause.empty() && refusal) {
        cause = "its folder cannot be written to: " + refusal.message();
    }
    if (!cause.empty()) {
        ThrowDatabaseError(file, cause);
    }
    return claim;
}

/// What a save that was cut off has left would be played back into the new file.
void SettleJournal(const std::string& file)
{
    const std::string journal = file + "-journal";
    const auto isLeft = [&journal] {
        std::error_code ignored;
        return std::filesystem::exists(std::filesystem::symlink_status(journal, ignored));
    };
    if (isLeft() && std::filesystem::exists(file)) {
        try {
            Database(file, Database::Mode::Existing).RemoveIdleJournal();
        } catch (const CorvexMaterial::Error&) {
            // It stays, then.
        }
    }
    if (isLeft()) {
        ThrowDatabaseError(file, "another program is changing it, or the journal '" + journal +
                                     "' belongs to another file; try again in a moment, or move "
                                     "the journal away");
    }
}

}  // namespace

struct SceneDocument::Inside {
    std::string path;
    CorvexMaterial::FileClaim claim;  // let go of last: closing a file ends SQLite's locks on it
    DocumentRows rows;
    Database database{path, Database::Mode::Existing};
    std::string folder = FolderOf(path);
    std::string readOnlyReason{};
    std::string identity{};  ///< of the file when it was read or written last

    [[nodiscard]] std::string ObstacleToWriting() const
    {
        if (!claim.Held()) {
            return "another window has it open";
        }
        if (std::string tooLong = LengthCause(path); !tooLong.empty()) {
            return tooLong;
        }
        if (CorvexMaterial::WriteRefusal(path) || database.IsReadOnly()) {
            return "you have no right to write to the file";
        }
        return CorvexMaterial::WriteRefusal(folder)
                   ? "you have no right to write to its folder, which saving needs"
                   : "";
    }
};

SceneDocument::SceneDocument(std::unique_ptr<Inside> inside) : m_inside(std::move(inside)) {}
SceneDocument::SceneDocument(SceneDocument&&) noexcept = default;
SceneDocument& SceneDocument::operator=(SceneDocument&&) noexcept = default;
SceneDocument::~SceneDocument() = default;

SceneDocument::Opened SceneDocument::Open(const std::string& path, const std::string& pictureFolder,
                                          Use use, const std::stop_token& stop)
{
    const std::string file = CanonicalPath(path);
    RequireHeader(file);
    try {
        auto inside = std::make_unique<Inside>(Inside{
            file, use == Use::Edit ? CorvexMaterial::FileClaim(file) : CorvexMaterial::FileClaim(),
            DocumentRows(pictureFolder)});
        std::vector<std::string> problems;
        Transaction reading(inside->database, Transaction::Purpose::Read);
        CheckTables(inside->database, DocumentKind());
        {
            const Interruption interruption(inside->database, stop);
            LoadRows(inside->database, inside->folder, inside->rows, problems);
        }
        reading.Commit();
        inside->readOnlyReason =
            use == Use::Edit ? inside->ObstacleToWriting() : "it was opened to be looked at";
        if (inside->readOnlyReason.empty()) {
            inside->database.RemoveIdleJournal();
            std::error_code ignored;
            std::filesystem::remove(UnfinishedPath(file), ignored);
        }
        inside->identity = CorvexMaterial::FileIdentity(file);
        SceneContent content = inside->rows.content;
        return {SceneDocument(std::move(inside)), std::move(content), std::move(problems)};
    } catch (const CorvexMaterial::Error&) {
        RequireHeader(file);
        RefuseTruncated(file);
        throw;
    }
}

SceneDocument SceneDocument::Create(const std::string& path, const SceneContent& content,
                                    const std::string& pictureFolder, SceneDocument* former)
{
    const std::string file = CanonicalPath(path);
    const std::string unfinished = UnfinishedPath(file);
    const CorvexMaterial::FileClaim replaced = ClaimToReplace(file);
    SettleJournal(file);
    std::error_code inTheWay;
    std::filesystem::remove(unfinished, inTheWay);
    if (inTheWay) {
        ThrowDatabaseError(file, "'" + unfinished + "' is in the way: " + inTheWay.message());
    }
    DocumentRows rows(pictureFolder);
    if (former != nullptr) {
        rows.textures.Follow(&former->m_inside->rows.textures, &former->m_inside->database);
    }
    try {
        Database database(unfinished, Database::Mode::New);
        // Nobody reads it before it has its name, and by then it is on the disk.
        database.Run("PRAGMA journal_mode = MEMORY");
        database.Run("PRAGMA synchronous = OFF");
        Transaction making(database, Transaction::Purpose::Write);
        MakeTables(database, DocumentKind());
        SaveRows(database, FolderOf(file), rows, content);
        making.Commit();
        rows.textures.Follow(nullptr, nullptr);
        CorvexMaterial::MoveInPlace(unfinished, file);
    } catch (...) {
        std::error_code ignored;
        std::filesystem::remove(unfinished, ignored);
        throw;
    }
    auto inside =
        std::make_unique<Inside>(Inside{file, CorvexMaterial::FileClaim(file), std::move(rows)});
    inside->readOnlyReason = inside->ObstacleToWriting();
    inside->identity = CorvexMaterial::FileIdentity(file);
    return SceneDocument(std::move(inside));
}

const std::string& SceneDocument::Path() const
{
    return m_inside->path;
}

const std::string& SceneDocument::ReadOnlyReason() const
{
    return m_inside->readOnlyReason;
}

bool SceneDocument::IsChangedByOthers() const
{
    return CorvexMaterial::FileIdentity(m_inside->path) != m_inside->identity;
}

void SceneDocument::Save(const SceneContent& content)
{
    if (!ReadOnlyReason().empty()) {
        ThrowDatabaseError(Path(), ReadOnlyReason());
    }
    DocumentRows rows = m_inside->rows;
    Transaction writing(m_inside->database, Transaction::Purpose::Write);
    SaveRows(m_inside->database, m_inside->folder, rows, content);
    writing.Commit();
    m_inside->rows = std::move(rows);
    m_inside->identity = CorvexMaterial::FileIdentity(Path());
}

void SceneDocument::LetGo()
{
    m_inside->claim = {};
}

void SceneDocument::Claim()
{
    m_inside->claim = CorvexMaterial::FileClaim(Path());
    m_inside->readOnlyReason = m_inside->ObstacleToWriting();
}

std::vector<std::string> SceneDocument::StructureProblems()
{
    std::vector<std::string> problems;
    Statement check = m_inside->database.Use("PRAGMA integrity_check(20)");
    while (check.Step()) {
        if (check.Text(0) != "ok") {
            problems.emplace_back(check.Text(0));
        }
    }
    return problems;
}

std::int64_t DocumentMark(const std::string& path)
{
    try {
        RequireHeader(path);
        Database database(path, Database::Mode::Existing);
        const Transaction reading(database, Transaction::Purpose::Read);
        CheckTables(database, DocumentKind());
        return std::atoll(ValueOf(database, "mark").c_str());
    } catch (const CorvexMaterial::Error&) {
        return 0;
    }
}

std::string UnfinishedPath(const std::string& path)
{
    const std::filesystem::path file(path);
    return (file.parent_path() / ('.' + file.filename().string() + ".saving")).string();
}

}  // namespace studio
