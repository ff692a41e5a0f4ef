#pragma once

#include "ModelImport.h"
#include "SourceReload.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

class QAction;
class QMenu;
class QUndoStack;
class QWidget;

namespace studio {

class ModelOpener;
class OpenDocument;
class OpeningReport;
class ScenePane;
class StudioHost;
class WindowMessages;

/// Reads the model again that the scene was made of, or another in its place, and keeps what its
/// shapes were given: one step of the undo history. Says so when a file of the model
/// changes.
class SourceReloading : public QObject {
    Q_OBJECT

public:
    /// What it works with; all of it outlives this object.
    struct Parts {
        StudioHost& host;
        WindowMessages& messages;
        ScenePane& scene;
        OpenDocument& document;
        QUndoStack& history;
        OpeningReport& report;
        QWidget& window;
    };

    SourceReloading(const Parts& parts, ImportProgram importer);

    void AddTo(QMenu& menu);
    void Reload();

private:
    class Step;

    void Read(const QString& file);
    void Choose(const QString& title);
    void ShowModel(const QString& file, const ImportedModel& model);
    [[nodiscard]] bool MayLose(const std::vector<std::string>& removed);
    void TellOf(const ReloadedScene& reloaded, const ImportedModel& model);
    void Watch();
    void LookAtFiles();

    Parts m_parts;
    ModelOpener* m_opener;
    QAction* m_reload = nullptr;
    QFileSystemWatcher m_watcher;
    QTimer m_look;       ///< a file is written in pieces
    SourceModel m_told;  ///< what the user knows of
};

}  // namespace studio
