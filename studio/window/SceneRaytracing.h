#pragma once

#include <CorvexMaterial/Processes.h>

#include <QObject>

class QMenu;
class QWidget;

namespace CorvexMaterial {
struct SceneFacts;
}

namespace studio {

class FileWork;
class ScenePane;
class StudioHost;
class WindowMessages;
struct RaytraceScene;

/// Renders what the viewport shows with the chosen raytracer, and writes it for others.
class SceneRaytracing : public QObject {
    Q_OBJECT

public:
    /// What it works with; all of it outlives this object.
    struct Parts {
        StudioHost& host;
        CorvexMaterial::ProcessStarter& processes;
        WindowMessages& messages;
        ScenePane& scene;
        FileWork& work;
        QWidget& window;
    };

    explicit SceneRaytracing(const Parts& parts);
    ~SceneRaytracing() override;

    void AddTo(QMenu& menu);
    /// In a window of its own.
    void Render();
    /// As it is now, for the raytracer that the name's ending tells; the window goes on meanwhile.
    /// The user is told how it ends.
    void Export(const QString& file);

private:
    [[nodiscard]] RaytraceScene SceneToRaytrace();
    void ChooseExport(const CorvexMaterial::SceneFacts& scene);
    void KeepFolder(const QString& folder);

    Parts m_parts;
};

}  // namespace studio
