#pragma once

#include "ModelImport.h"

#include <QObject>

#include <memory>

class QAction;
class QMainWindow;
class QMenu;

namespace studio {

class FileWork;
class MaterialExchange;
class ModelOpener;
class OpenDocument;
class ScenePane;
class StudioHost;
class WindowMessages;

/// Saves the materials of the scene back into the files of its source model, as long as these are
/// as they were read. What they held is read from them again, just before.
class SourceSaving : public QObject {
    Q_OBJECT

public:
    /// What it works with; all of it outlives this object.
    struct Parts {
        StudioHost& host;
        WindowMessages& messages;
        ScenePane& scene;
        OpenDocument& document;
        MaterialExchange& exchange;  ///< keeps the report
        FileWork& work;
        QMainWindow& window;
    };

    SourceSaving(const Parts& parts, ImportProgram importer);

    void AddTo(QMenu& menu);

Q_SIGNALS:
    void ReloadWanted();

private:
    void ShowName();
    void Begin();
    void Save(const QString& file, const ImportedModel& model);
    void OfferReload(const QString& reason);
    struct Job;
    void Ask(const std::shared_ptr<Job>& job);
    void Write(const std::shared_ptr<Job>& job, const QString& losses);

    Parts m_parts;
    ModelOpener* m_opener;
    QAction* m_action = nullptr;
};

}  // namespace studio
