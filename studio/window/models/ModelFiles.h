#pragma once

#include "ModelImport.h"

#include <QObject>

class QWidget;

namespace studio {

class DocumentMenu;
class ModelOpener;
class OpenDocument;
class ScenePane;
class StudioHost;
class WindowMessages;

/// Makes models, and the scene that the studio starts with, new documents.
class ModelFiles : public QObject {
    Q_OBJECT

public:
    /// What it works with; all of it outlives this object.
    struct Parts {
        StudioHost& host;
        WindowMessages& messages;
        ScenePane& scene;
        OpenDocument& document;
        DocumentMenu& documentMenu;
        QWidget& window;
    };

    ModelFiles(const Parts& parts, ImportProgram importer);

    /// Asks what is to become of what is edited before the model is read, and of nothing else.
    void Open(const QString& file);
    void ShowDefaultScene();

Q_SIGNALS:
    /// The scene has the model's shapes.
    void Opened(const QString& file, const studio::ImportedModel& model);
    /// The message has been shown to the user. No file when he cancelled it himself.
    void Refused(const QString& file, const QString& message);

private:
    void Show(const QString& file, const ImportedModel& model);
    void GiveUp(const QString& file);
    void Refuse(const QString& file, const QString& message);

    Parts m_parts;
    ModelOpener* m_opener;
    int m_edits = 0;  ///< of the document, when the reading began
};

}  // namespace studio
