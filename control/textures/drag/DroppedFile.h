#pragma once

#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

namespace CorvexMaterial {

/// Path of the first local file of a drag; empty when it carries none. What is no file, or is there
/// no longer, does not count.
[[nodiscard]] inline QString DroppedFile(const QDropEvent& event)
{
    for (const QUrl& url : event.mimeData()->urls()) {
        if (url.isLocalFile() && QFileInfo(url.toLocalFile()).isFile()) {
            return url.toLocalFile();
        }
    }
    return {};
}

}  // namespace CorvexMaterial
