#pragma once

#include "LibrarySchema.h"
#include "ModelImport.h"
#include "RecentFiles.h"
#include "StudioScene.h"

#include <QObject>

class QMainWindow;
class QMenu;
class QUndoStack;

namespace studio {

class MaterialExchange;
class ModelOpener;
class ScenePane;
class StudioHost;
class WindowMessages;

/// Opens files: a model becomes the scene, a library goes to whoever shows libraries. Files are
/// chosen in the menu or dropped on the window.
class ModelFiles : public QObject {
    Q_OBJECT

public:
    /// What it works with; all of it outlives this object.
    struct Parts {
        StudioHost& host;
        WindowMessages& messages;
        ScenePane& scene;
        QUndoStack& history;
        MaterialExchange& exchange;  ///< keeps the report
        QMainWindow& window;
    };

    ModelFiles(const Parts& parts, ImportProgram importer);

    void AddTo(QMenu& menu);
    /// Files that are dropped there are opened.
    void AcceptDropsOn(QWidget& widget);
    void Open(const QString& file);
    void OpenModel(const QString& file);
    void ResetScene();
    /// Of the model opened last; empty when there is none.
    [[nodiscard]] QString Folder() const;

Q_SIGNALS:
    void LibraryOpened(const QString& file, studio::LibraryKind kind);
    void SceneOpened();
    /// The message has been shown to the user.
    void SceneRefused(const QString& message);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ChooseFile();
    void ListRecentFiles(QMenu* menu);
    void ShowModel(const QString& file, const ImportedModel& model);
    void TellOf(const ImportedModel& model);
    void RefuseModel(const QString& file, const QString& message);
    void ShowShapes(StudioScene::Shapes shapes, const QString& title);

    Parts m_parts;
    RecentFiles m_recent;
    ModelOpener* m_opener;
};

}  // namespace studio
