#pragma once

#include "ModelImport.h"

#include <QObject>

#include <memory>

class QMainWindow;
class QMenu;
class QUndoStack;

namespace studio {

class DocumentMenu;
class FileWork;
class FileOpening;
class MaterialExchange;
class ModelFiles;
class OpenDocument;
class OpeningReport;
class PanelDock;
class PanelLibraries;
class ScenePane;
class SourceReloading;
class SourceSaving;
class StudioHost;
class TextureKeeping;
class WindowMessages;
class WorkRecovery;

/// The files of a window: puts together what opens, saves and recovers them. What each of them does
/// is theirs.
class WindowFiles : public QObject {
    Q_OBJECT

public:
    /// What it works with; all of it outlives this object.
    struct Parts {
        StudioHost& host;
        WindowMessages& messages;
        ScenePane& scene;
        QUndoStack& history;
        PanelDock& panel;
        PanelLibraries& libraries;
        MaterialExchange& exchange;
        FileWork& work;
        QMainWindow& window;
    };

    WindowFiles(const Parts& parts, const ImportProgram& importer);
    ~WindowFiles() override;

    [[nodiscard]] OpenDocument& Document() { return *m_document; }
    [[nodiscard]] FileOpening& Opening() { return *m_opening; }
    [[nodiscard]] ModelFiles& Models() { return *m_models; }
    [[nodiscard]] WorkRecovery& Recovery() { return *m_recovery; }
    /// Whether the document may go; asks the user where he would lose something.
    [[nodiscard]] bool MayGo();

    void AddTo(QMenu& file);

Q_SIGNALS:
    void SceneOpened();
    /// The message has been shown to the user.
    void SceneRefused(const QString& message);

private:
    void ConnectOpening();
    void ConnectOutcomes();
    bool BeginAnew();

    Parts m_parts;
    // In the order in which they need each other: the last one goes first.
    std::unique_ptr<OpeningReport> m_report;
    std::unique_ptr<OpenDocument> m_document;
    std::unique_ptr<DocumentMenu> m_menu;
    std::unique_ptr<ModelFiles> m_models;
    std::unique_ptr<SourceReloading> m_reloading;
    std::unique_ptr<WorkRecovery> m_recovery;
    std::unique_ptr<FileOpening> m_opening;
    std::unique_ptr<SourceSaving> m_saving;
    std::unique_ptr<TextureKeeping> m_keeping;
};

}  // namespace studio
