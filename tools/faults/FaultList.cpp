#include "FaultList.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QSet>

#include <map>
#include <stdexcept>

namespace faults {
namespace {

// Read as a constant where the compiler computes: there the line stays as it stands.
constexpr const char* kChooser = R"(#pragma once
#include <cstdlib>
#include <type_traits>
inline int ChosenCorvexFault() noexcept
{
    static const int chosen = [] {
        const char* number = std::getenv("CORVEX_FAULT");
        return number == nullptr ? 0 : std::atoi(number);
    }();
    return chosen;
}
constexpr bool CorvexFault(int number) noexcept
{
    return std::is_constant_evaluated() ? false : ChosenCorvexFault() == number;
}
)";

QString ContentOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw std::runtime_error(path.toStdString() + " cannot be read");
    }
    return QString::fromUtf8(file.readAll());
}

void Write(const QString& path, const QString& content)
{
    if (QFile::exists(path) && ContentOf(path) == content) {
        return;
    }
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content.toUtf8()) < 0) {
        throw std::runtime_error(path.toStdString() + " cannot be written");
    }
}

QString WithChoice(const Fault& fault)
{
    const QString form = fault.stands.endsWith(u';')
                             ? QStringLiteral("if (CorvexFault(%1)) { %2 } else { %3 }")
                             : QStringLiteral("(CorvexFault(%1) ? (%2) : (%3))");
    return form.arg(fault.number).arg(fault.instead, fault.stands);
}

QStringList FilesOf(const QString& tree)
{
    QProcess git;
    git.setWorkingDirectory(tree);
    git.start(QStringLiteral("git"), {"ls-files", "-z", "-co", "--exclude-standard"});
    if (!git.waitForFinished() || git.exitCode() != 0) {
        throw std::runtime_error("git does not list the files");
    }
    return QString::fromUtf8(git.readAllStandardOutput()).split(QChar(u'\0'), Qt::SkipEmptyParts);
}

// A source that has moved would be compiled twice.
void RemoveOthers(const QString& copy, const QSet<QString>& files, const QString& chooser)
{
    QDirIterator each(copy, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (each.hasNext()) {
        const QString name = each.next().mid(copy.size() + 1);
        if (!name.startsWith(QStringLiteral("build/")) && !files.contains(name) &&
            each.filePath() != chooser) {
            QFile::remove(each.filePath());
        }
    }
}

}  // namespace

QString Fault::Building() const
{
    return file.section(u'/', 0, file.startsWith(QStringLiteral("engine/")) ? 1 : 0);
}

std::vector<Fault> ReadFaults(const QString& tree)
{
    std::vector<Fault> faults;
    Fault next;
    for (const QString& line :
         ContentOf(tree + QStringLiteral("/tools/faults/faults.txt")).split(u'\n')) {
        if (line.isEmpty() || line.startsWith(u'#')) {
            continue;
        }
        if (line.startsWith(QStringLiteral("- "))) {
            next.stands = line.mid(2);
        } else if (line.startsWith(QStringLiteral("+ ")) && !next.stands.isEmpty()) {
            next.instead = line.mid(2);
            next.number = static_cast<int>(faults.size()) + 1;
            faults.push_back(next);
            next.stands.clear();
        } else if (line.contains(QStringLiteral(" | "))) {
            next.file = line.section(QStringLiteral(" | "), 0, 0);
            next.suites = line.section(QStringLiteral(" | "), 1).split(u' ');
        } else {
            throw std::runtime_error("faults.txt is not understood: " + line.toStdString());
        }
    }
    return faults;
}

QStringList ProblemsOf(const std::vector<Fault>& faults, const QString& tree)
{
    QStringList problems;
    for (const Fault& fault : faults) {
        const QString path = tree + u'/' + fault.file;
        const auto count = QFile::exists(path) ? ContentOf(path).count(fault.stands) : 0;
        if (count != 1) {
            problems << QStringLiteral("%1 has %2 times: %3")
                            .arg(fault.file)
                            .arg(count)
                            .arg(fault.stands);
        }
    }
    return problems;
}

void Seed(const std::vector<Fault>& faults, const QString& tree, const QString& copy)
{
    const QString chooser = copy + QStringLiteral("/CorvexFault.h");
    Write(chooser, QString::fromUtf8(kChooser));
    std::map<QString, QString> seeded;
    for (const Fault& fault : faults) {
        auto [place, isNew] = seeded.try_emplace(fault.file);
        if (isNew) {
            place->second = QStringLiteral("#include \"%1\"\n#line 1\n").arg(chooser) +
                            ContentOf(tree + u'/' + fault.file);
        }
        place->second.replace(fault.stands, WithChoice(fault));
    }
    const QStringList files = FilesOf(tree);
    RemoveOthers(copy, {files.begin(), files.end()}, chooser);
    for (const QString& file : files) {
        const QString from = tree + u'/' + file;
        const QString to = copy + u'/' + file;
        if (const auto own = seeded.find(file); own != seeded.end()) {
            Write(to, own->second);
        } else if (QFileInfo(to).lastModified() < QFileInfo(from).lastModified()) {
            QDir().mkpath(QFileInfo(to).path());
            QFile::remove(to);
            QFile::copy(from, to);
        }
    }
}

}  // namespace faults
