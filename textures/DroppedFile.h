#pragma once

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace CorvexMaterial {

/// Path of the first local file of a drag; empty when it carries none.
[[nodiscard]] inline QString DroppedFile(const QDropEvent& event)
{
    for (const QUrl& url : event.mimeData()->urls()) {
        if (url.isLocalFile()) {
            return url.toLocalFile();
        }
    }
    return {};
}

}  // namespace CorvexMaterial
