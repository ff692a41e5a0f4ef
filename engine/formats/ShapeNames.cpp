#include "ShapeNames.h"

#include <QChar>
#include <QList>
#include <QString>

#include <algorithm>

namespace studio {

namespace {

constexpr qsizetype kLongestName = 80;
// Enough for any name that is kept, so that a name of megabytes costs nothing.
constexpr std::size_t kBytesLookedAt = 4096;

}  // namespace

std::string ReadableName(std::string_view raw, std::string_view fallback)
{
    const std::string_view head = raw.substr(0, std::min(raw.size(), kBytesLookedAt));
    const QString text = QString::fromUtf8(head.data(), static_cast<qsizetype>(head.size()));
    QList<uint> kept;
    for (const uint character : text.simplified().toUcs4()) {
        if (QChar::isPrint(character) && kept.size() < kLongestName) {
            kept.append(character);
        }
    }
    const QString name =
        QString::fromUcs4(reinterpret_cast<const char32_t*>(kept.constData()), kept.size());
    return name.isEmpty() ? std::string(fallback) : name.trimmed().toStdString();
}

}  // namespace studio
