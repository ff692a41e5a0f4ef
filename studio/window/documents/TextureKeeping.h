#pragma once

#include <QObject>

class QAction;
class QMenu;

namespace studio {

class DocumentMenu;
class FileWork;
class MaterialLink;
class OpenDocument;
class ScenePane;
class WindowMessages;

/// Where the document's textures are: inside it, in the files that they came from, or in a folder
/// of copies beside it.
class TextureKeeping : public QObject {
    Q_OBJECT

public:
    /// What it works with; all of it outlives this object.
    struct Parts {
        OpenDocument& document;
        DocumentMenu& documentMenu;
        FileWork& work;
        WindowMessages& messages;
        ScenePane& scene;
        MaterialLink& link;
    };

    explicit TextureKeeping(const Parts& parts);

    void AddTo(QMenu& menu);
    /// Copies what the scene uses into `Textures/` beside the document, which is saved first where
    /// it has no file yet.
    void Collect();

private:
    void ShowPlace();

    Parts m_parts;
    QAction* m_inDocument = nullptr;
};

}  // namespace studio
