#include "SourceModel.h"

#include <QDateTime>
#include <QFileInfo>

#include <algorithm>

namespace studio {

FileStamp StampOf(const std::string& path)
{
    const QFileInfo file(QString::fromStdString(path));
    FileStamp stamp{file.absoluteFilePath().toStdString()};
    if (file.isFile()) {
        stamp.bytes = file.size();
        stamp.modified = file.lastModified().toUTC().toMSecsSinceEpoch();
    }
    return stamp;
}

SourceModel SourceModelAt(const std::string& path, const std::vector<std::string>& others)
{
    SourceModel source{StampOf(path)};
    std::ranges::transform(others, std::back_inserter(source.others), StampOf);
    return source;
}

SourceModel SourceNow(const SourceModel& source)
{
    SourceModel now{StampOf(source.path)};
    for (const FileStamp& other : source.others) {
        now.others.push_back(StampOf(other.path));
    }
    return now;
}

SourceState StateOf(const SourceModel& source)
{
    if (source.path.empty()) {
        return SourceState::None;
    }
    const SourceModel now = SourceNow(source);
    if (now.modified == 0) {
        return SourceState::Missing;
    }
    return now == source ? SourceState::Unchanged : SourceState::Changed;
}

std::string ChangedFileOf(const SourceModel& source)
{
    const auto isAnother = [](const FileStamp& stamp) { return StampOf(stamp.path) != stamp; };
    if (isAnother(source)) {
        return source.path;
    }
    const auto other = std::ranges::find_if(source.others, isAnother);
    return other == source.others.end() ? std::string() : other->path;
}

}  // namespace studio
