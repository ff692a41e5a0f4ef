#pragma once

#include "MaterialLink.h"
#include "WarningPresenter.h"
#include <CorvexMaterial/Platform.h>

#include <QObject>

class QDockWidget;
class QLabel;
class QMainWindow;
class QMenu;

namespace studio {

class MaterialVariants;
class PanelArea;
struct StudioColours;
class PanelFill;
class PlacementEditing;
class ScenePane;
class StudioHost;
class WindowMessages;

/// The dock with the material panel, and what goes between panel, scene and status line.
class PanelDock : public QObject {
    Q_OBJECT

public:
    /// What the dock works with; all of it outlives the dock.
    struct Parts {
        StudioHost& host;
        CorvexMaterial::Platform& platform;
        WindowMessages& messages;
        ScenePane& scene;
        QUndoStack& history;
        QMainWindow& window;
    };

    PanelDock(const Parts& parts, MaterialLink::Clock clock);
    ~PanelDock() override;

    [[nodiscard]] CorvexMaterial::Material& Panel() { return *m_material; }
    [[nodiscard]] MaterialLink& Link() { return *m_link; }
    [[nodiscard]] QDockWidget& Dock() { return *m_dock; }

    /// Lists the plug-ins and shows what was saved. At the first start the panels are unfolded.
    void Start(bool isFirstStart);
    void AddTo(QMenu& view);
    /// Above all else in the dock.
    void AddAbove(QWidget& line);
    /// Scrolls to what stands on the panel, once that has its place.
    void RevealSoon(QWidget& widget);
    /// The background colours of the settings.
    void ApplyColours();
    void ShowColours(const StudioColours& colours);
    void SaveLayout();
    void CloseWarnings() { m_warnings.CloseAll(); }
    void RestoreWarnings();

private:
    void Build();
    void ConnectPanel();
    void ConnectPlugins();
    void ListPlugins();
    void TellAffected(std::size_t shapes, std::size_t materials);

    Parts m_parts;
    WarningPresenter m_warnings;
    QLabel* m_affects;
    PanelArea* m_area;
    CorvexMaterial::Material* m_material;
    MaterialLink* m_link;
    MaterialVariants* m_variants = nullptr;
    PlacementEditing* m_placement;
    PanelFill* m_fill;
    QDockWidget* m_dock;
};

}  // namespace studio
