#pragma once

#include <CorvexMaterial/Processes.h>

#include <QObject>

class QMenu;
class QWidget;

namespace CorvexMaterial {
struct SceneFacts;
}

namespace studio {

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
        QWidget& window;
    };

    explicit SceneRaytracing(const Parts& parts);
    ~SceneRaytracing() override;

    void AddTo(QMenu& menu);
    /// In a window of its own.
    void Render();
    /// For the raytracer that the name's ending tells. The user is told when that fails.
    void Export(const QString& file);

private:
    [[nodiscard]] RaytraceScene SceneToRaytrace();
    void ChooseExport(const CorvexMaterial::SceneFacts& scene);
    void KeepFolder(const QString& folder);

    Parts m_parts;
};

}  // namespace studio
