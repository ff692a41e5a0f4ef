#pragma once

#include <QByteArray>

#include <string>

namespace studio {

/// Longer than any sensible document of materials.
inline constexpr qint64 kMostDocumentBytes = 64LL << 20;

/// Errors: FileFailed naming the file, also for one that is larger than kMostDocumentBytes.
[[nodiscard]] QByteArray ReadDocument(const std::string& path);

/// The document's folder, absolute.
[[nodiscard]] std::string FolderOfDocument(const std::string& path);

/// Throws an Error of status FileFailed whose text is the file, a colon and the cause.
[[noreturn]] void RefuseDocument(const std::string& path, const std::string& cause);

/// UTF-8; bytes of another encoding are taken for Latin-1, as old programs write it.
[[nodiscard]] QString TextOfDocument(const QByteArray& bytes);

}  // namespace studio
