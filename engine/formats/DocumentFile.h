#pragma once

#include <QByteArray>
#include <QFile>

#include <span>
#include <string>

namespace studio {

/// Longer than any sensible document of materials.
inline constexpr qint64 kMostDocumentBytes = 64LL << 20;
/// Of each file of a model.
inline constexpr qint64 kMostModelFileBytes = 2LL << 30;

/// Errors: FileFailed naming the file, also for one that is larger than kMostDocumentBytes.
[[nodiscard]] QByteArray ReadDocument(const std::string& path);

/// A file of a model, or one that it names, as bytes that cost no memory of their own. A process
/// whose time is limited may work longer for it.
class ModelFile {
public:
    explicit ModelFile(const std::string& path);

    /// Why it was not opened, for a person; empty when it was.
    [[nodiscard]] const std::string& Obstacle() const { return m_obstacle; }
    [[nodiscard]] std::string_view Text() const { return m_text; }
    [[nodiscard]] QByteArray Bytes() const;

private:
    QFile m_file;
    std::string m_obstacle;
    std::string_view m_text;
};

/// The document's folder, absolute.
[[nodiscard]] std::string FolderOfDocument(const std::string& path);

/// Throws an Error of status FileFailed whose text is the file, a colon and the cause.
[[noreturn]] void RefuseDocument(const std::string& path, const std::string& cause);

/// UTF-8; bytes of another encoding are taken for Latin-1, as old programs write it.
[[nodiscard]] QString TextOfDocument(const QByteArray& bytes);

}  // namespace studio
