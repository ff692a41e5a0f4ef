#include "PovRayIncludes.h"

#include "PovRayJob.h"
#include "QtRegularFile.h"
#include "RaytracerPrograms.h"

#include <QDir>
#include <QRegularExpression>

namespace studio {
namespace {

constexpr const char* kCopyPrefix = "srgb-";

/// As POV-Ray is installed everywhere: its program in `bin`, its files in `share` beside it.
QString IncludeFolder()
{
    const auto& facts = CorvexMaterial::kPovRay.program;
    const QFileInfo program(FindProgram(facts, PassedProgram(facts)));
    const QDir share(QFileInfo(program.canonicalFilePath()).path() + QStringLiteral("/../share"));
    for (const QString& version : share.entryList({QStringLiteral("povray-3*")}, QDir::Dirs)) {
        const QString folder = share.filePath(version) + QStringLiteral("/include");
        if (QFileInfo::exists(folder + QStringLiteral("/colors.inc"))) {
            return QDir::cleanPath(folder);
        }
    }
    return {};
}

QString ContentOf(const QString& path)
{
    constexpr std::int64_t kMostIncludeBytes = 16 << 20;
    // The files are in an older encoding; whatever it is, it comes out as it went in.
    return QString::fromLatin1(CorvexMaterial::ReadRegular(path, kMostIncludeBytes));
}

}  // namespace

QString WithScreenColours(QString text)
{
    static const QRegularExpression kColour(QStringLiteral("\\brgb(f|t|ft)?\\b"));
    return text.replace(kColour, QStringLiteral("srgb\\1"));
}

PovRayIncludes::PovRayIncludes(RaytraceImages::Place place)
    : m_source(IncludeFolder()), m_place(std::move(place))
{
}

std::string PovRayIncludes::Named(const std::string& file)
{
    const QString name = QString::fromStdString(file);
    if (m_source.isEmpty() || !QFileInfo::exists(m_source + u'/' + name)) {
        return file;
    }
    if (m_copied.insert(file).second) {
        Copy(name);
    }
    return m_place.reference + kCopyPrefix + file;
}

void PovRayIncludes::Copy(const QString& file)
{
    static const QRegularExpression kInclude(QStringLiteral("#include\\s+\"([^\"]+)\""));
    QString text = WithScreenColours(ContentOf(m_source + u'/' + file));
    for (const QRegularExpressionMatch& found : kInclude.globalMatch(QString(text))) {
        const std::string own = Named(found.captured(1).toStdString());
        text.replace(found.captured(0),
                     QStringLiteral("#include \"%1\"").arg(QString::fromStdString(own)));
    }
    const std::string folder = m_place.folder.toStdString();
    CorvexMaterial::MakeFolder(folder);
    CorvexMaterial::WriteFile(folder + '/' + kCopyPrefix + file.toStdString(), text.toLatin1(),
                              m_place.lifetime);
}

}  // namespace studio
