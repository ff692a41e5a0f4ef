#include "QtLibraryFiles.h"

#include <QCollator>
#include <QDir>
#include <QFileInfo>
#include <QLocale>

#include <algorithm>

namespace CorvexMaterial {

namespace {

// Numbers in names count as numbers, so that "Wood 2" comes before "Wood 10".
void SortAsAPersonDoes(QStringList& names)
{
    QCollator order{QLocale::system()};
    order.setNumericMode(true);
    order.setCaseSensitivity(Qt::CaseInsensitive);
    std::sort(names.begin(), names.end(), [&order](const QString& one, const QString& other) {
        const int compared = order.compare(one, other);
        return compared != 0 ? compared < 0 : one < other;
    });
}

}  // namespace

bool QtLibraryFiles::Exists(const std::string& path)
{
    return QFileInfo(QString::fromStdString(path)).isFile();
}

bool QtLibraryFiles::MakeWritable(const std::string& path)
{
    QFile file(QString::fromStdString(path));
    const auto permissions = file.permissions();
    return permissions.testFlag(QFileDevice::WriteOwner) ||
           file.setPermissions(permissions | QFileDevice::WriteOwner);
}

std::vector<std::string> QtLibraryFiles::NamesIn(const std::string& folder,
                                                 const std::string& extension)
{
    // Name filters do not tell cases apart unless asked to.
    const QStringList pattern{QStringLiteral("*.") + QString::fromStdString(extension)};
    QStringList names = QDir(QString::fromStdString(folder))
                            .entryList(pattern, QDir::Files | QDir::Hidden, QDir::NoSort);
    SortAsAPersonDoes(names);
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(names.size()));
    for (const QString& name : names) {
        texts.push_back(name.toStdString());
    }
    return texts;
}

}  // namespace CorvexMaterial
