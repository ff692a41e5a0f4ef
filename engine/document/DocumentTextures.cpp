#include "DocumentTextures.h"

#include "DatabaseError.h"
#include "DocumentParts.h"
#include "FileClaim.h"
#include "FileWriting.h"
#include "QtRegularFile.h"
#include <CorvexMaterial/Status.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace studio {
namespace {

constexpr const char* kMark = "embedded:";

std::string HashOf(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex().toStdString();
}

bool IsHash(const std::string& text)
{
    return text.size() == 64 && text.find_first_not_of("0123456789abcdef") == std::string::npos;
}

/// A name from a document may be anything.
std::string PlainName(const std::string& name)
{
    const QString plain = QFileInfo(QString::fromStdString(name)).fileName().left(200);
    return plain.isEmpty() || plain == u"." || plain == u".." ? "texture" : plain.toStdString();
}

std::string StoredAs(std::int64_t id, const std::string& name)
{
    return kMark + std::to_string(id) + '/' + name;
}

// What is there was looked at when it was put there, so its content is that of its folder's name.
bool IsThere(const std::string& file, std::int64_t bytes)
{
    const QFileInfo there(QString::fromStdString(file));
    return there.isFile() && !there.isSymLink() && there.size() == bytes;
}

QByteArray StoredPicture(Database& database, std::int64_t id, std::int64_t bytes,
                         const std::string& sha256)
{
    QByteArray content(static_cast<qsizetype>(bytes), Qt::Uninitialized);
    ReadChunks(database, ChunkOwner::Texture, id,
               {content.data(), static_cast<std::size_t>(content.size())});
    if (HashOf(content) != sha256) {
        ThrowDatabaseError(database.Path(), "a texture in it is damaged");
    }
    return content;
}

}  // namespace

void DocumentTextures::Extract(Database& database, std::vector<std::string>& problems)
{
    Statement pictures =
        database.Compile("SELECT id, name, bytes, sha256 FROM textures ORDER BY id");
    while (pictures.Step()) {
        Row row{pictures.Integer(0),
                PlainName(std::string(pictures.Text(1))),
                {},
                std::string(pictures.Text(3))};
        const std::int64_t bytes = pictures.Integer(2);
        if (!IsHash(row.sha256) || bytes < 0 || bytes > CorvexMaterial::kMostPictureFileBytes) {
            ThrowDatabaseError(database.Path(), "a texture in it is damaged");
        }
        const std::string folder = m_folder + '/' + row.sha256.substr(0, 32);
        const std::string file = folder + '/' + row.name;
        if (!IsThere(file, bytes)) {
            const QByteArray content = StoredPicture(database, row.id, bytes, row.sha256);
            try {
                CorvexMaterial::MakeFolder(folder);
                CorvexMaterial::WriteFile(file,
                                          {content.constData(), static_cast<std::size_t>(bytes)});
            } catch (const CorvexMaterial::Error& error) {
                problems.push_back("A texture stays in it unseen: " + std::string(error.what()));
            }
        }
        row.identity = CorvexMaterial::FileIdentity(file);
        m_rows.emplace(file, std::move(row));
    }
}

bool DocumentTextures::IsExtracted(const std::string& file) const
{
    return file.starts_with(m_folder + '/');
}

std::optional<QByteArray> DocumentTextures::ContentOf(const std::string& file) const
{
    try {
        return CorvexMaterial::ReadRegular(QString::fromStdString(file),
                                           CorvexMaterial::kMostPictureFileBytes);
    } catch (const CorvexMaterial::Error&) {
        const auto row = m_former == nullptr ? m_rows.end() : m_former->m_rows.find(file);
        if (m_former == nullptr || row == m_former->m_rows.end()) {
            return std::nullopt;
        }
        Statement size = m_formerDatabase->Use("SELECT bytes FROM textures WHERE id = ?1");
        size.Bind(1, row->second.id);
        return size.Step() ? std::optional(StoredPicture(*m_formerDatabase, row->second.id,
                                                         size.Integer(0), row->second.sha256))
                           : std::nullopt;
    }
}

std::optional<std::string> DocumentTextures::Embed(Database& database, const std::string& file)
{
    const std::string identity = CorvexMaterial::FileIdentity(file);
    if (const auto known = m_rows.find(file);
        known != m_rows.end() && (identity.empty() || known->second.identity == identity)) {
        return StoredAs(known->second.id, known->second.name);
    }
    const std::optional<QByteArray> found = ContentOf(file);
    if (!found) {
        return std::nullopt;
    }
    const QByteArray& content = *found;
    Row row{0, PlainName(file), identity, HashOf(content)};
    const auto same = std::ranges::find_if(
        m_rows, [&row](const auto& known) { return known.second.sha256 == row.sha256; });
    if (same != m_rows.end()) {
        row.id = same->second.id;
    } else {
        database.Use("INSERT INTO textures (name, bytes, sha256) VALUES (?1, ?2, ?3)")
            .Bind(1, row.name)
            .Bind(2, content.size())
            .Bind(3, row.sha256)
            .Run();
        row.id = database.LastId();
        WriteChunks(database, ChunkOwner::Texture, row.id,
                    {content.constData(), static_cast<std::size_t>(content.size())});
    }
    const Row& kept = m_rows.insert_or_assign(file, std::move(row)).first->second;
    return StoredAs(kept.id, kept.name);
}

std::optional<std::string> DocumentTextures::FileOf(const std::string& stored) const
{
    const std::size_t mark = stored.find(kMark);
    if (mark == std::string::npos) {
        return std::nullopt;
    }
    const std::int64_t id = std::atoll(stored.c_str() + mark + std::string_view(kMark).size());
    const auto row =
        std::ranges::find_if(m_rows, [id](const auto& known) { return known.second.id == id; });
    return row == m_rows.end() ? std::nullopt : std::optional(row->first);
}

void DocumentTextures::Keep(Database& database, const std::set<std::string>& stored)
{
    std::erase_if(m_rows, [&](const auto& known) {
        const Row& row = known.second;
        if (stored.contains(StoredAs(row.id, row.name))) {
            return false;
        }
        const auto isSame = [&row](const std::string& text) {
            return text.starts_with(kMark + std::to_string(row.id) + '/');
        };
        if (std::ranges::none_of(stored, isSame)) {
            database.Use("DELETE FROM textures WHERE id = ?1").Bind(1, row.id).Run();
            RemoveChunks(database, ChunkOwner::Texture, row.id);
        }
        return true;
    });
}

}  // namespace studio
