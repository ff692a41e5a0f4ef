#pragma once

#include <QStringList>

class QWidget;

namespace studio {

struct SaveQuestion {
    QString title;
    QString folder;
    QStringList filters;  ///< "glTF (*.gltf)", one ending each
    QString name = {};    ///< proposed, without its ending
};

/// Asks for a file to write. A name without an ending gets that of the filter. Empty when the user
/// thinks better of it.
[[nodiscard]] QString AskForTarget(QWidget& parent, const SaveQuestion& question);

}  // namespace studio
