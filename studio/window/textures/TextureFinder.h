#pragma once

#include "MissingTextures.h"

#include <QObject>

#include <functional>

class QMenu;
class QWidget;

namespace studio {

class MaterialLink;
class StudioScene;
class WindowMessages;

/// Looks for the textures that the scene misses and puts what the user takes of it in their place.
class TextureFinder : public QObject {
    Q_OBJECT

public:
    /// What it works with; all of it outlives this object.
    struct Parts {
        WindowMessages& messages;
        StudioScene& scene;
        MaterialLink& link;
        std::function<QString()> startFolder;
        QWidget& window;
    };

    explicit TextureFinder(Parts parts) : m_parts(std::move(parts)) {}

    void AddTo(QMenu& menu);
    /// Looks below the folder and offers what it finds.
    void FindIn(const QString& folder);
    void ChooseFolder();

private:
    void Replace(const std::vector<TextureReplacement>& chosen);

    Parts m_parts;
};

}  // namespace studio
