#pragma once

#include "MaterialLink.h"
#include "ModelImport.h"
#include "Selection.h"
#include "StudioScene.h"
#include <CorvexMaterial/Material.h>

#include <QMainWindow>
#include <QUndoStack>

class QDockWidget;

namespace studio {

class FileWork;
class HelpDesk;
class Hints;
class LargePreview;
class LibraryLinks;
class MaterialCopying;
class MaterialExchange;
class MaterialNaming;
class OpenDocument;
class OptionsEditing;
class OutlinerDock;
class PanelDock;
class PanelLibraries;
class ScenePane;
class SceneExchange;
class SceneRaytracing;
class ShapeHiding;
class ShapeMenu;
class StudioHost;
class TextureFinder;
class ViewportWidget;
class ViewMenu;
class WindowFiles;
class WindowMessages;

/// The studio's window: the scene in the middle, the material panel docked beside it. It puts the
/// parts together, its menus of what they offer, and keeps its place on the screen; what can be
/// done is theirs.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// Host and platform outlive the window.
    MainWindow(StudioHost& host, CorvexMaterial::Platform& platform,
               const ImportProgram& importer = {}, MaterialLink::Clock clock = SteadyNow);
    ~MainWindow() override;

    /// As a user does: a scene document, a model, a library, materials; a path or an address. Asks
    /// before changes are lost.
    void OpenFile(const QString& file);
    /// Reads the model in the background; `SceneOpened` or `SceneRefused` follows. What is shown
    /// stays until it is read, and for good when it cannot be. Asks only about what is edited
    /// meanwhile.
    void OpenModel(const QString& file);
    void ResetScene();
    /// Shows the work that programs could not save which ended before, if there is any.
    void OfferRecovery();
    /// Until he has seen or closed them once.
    void OfferFirstSteps();
    /// What closing the window saves.
    void Save();
    /// Closing the window asks nothing any more; what is not saved can be recovered.
    void QuitUnasked() { m_quitsUnasked = true; }

    [[nodiscard]] CorvexMaterial::Material& Panel();
    [[nodiscard]] const StudioScene& Scene() const;
    [[nodiscard]] Selection& Selected();
    /// Of the scene.
    [[nodiscard]] QUndoStack& History() { return m_history; }
    [[nodiscard]] QUndoStack& LibraryHistory();
    [[nodiscard]] OpenDocument& Document();
    [[nodiscard]] LibraryLinks& Links() { return *m_links; }
    [[nodiscard]] ShapeHiding& Hiding() { return *m_hiding; }
    [[nodiscard]] ViewMenu& Views() { return *m_views; }
    /// Its `MenuRequested` offers more at the pointer.
    [[nodiscard]] ShapeMenu& Shapes() { return *m_shapes; }
    [[nodiscard]] FileWork& Work() { return *m_work; }
    [[nodiscard]] MaterialExchange& Exchange() { return *m_exchange; }
    [[nodiscard]] SceneExchange& Handing() { return *m_handing; }
    [[nodiscard]] SceneRaytracing& Raytracing() { return *m_raytracing; }
    [[nodiscard]] TextureFinder& Textures() { return *m_textures; }
    [[nodiscard]] ViewportWidget& Viewport();
    [[nodiscard]] QDockWidget& Dock();

Q_SIGNALS:
    void SceneOpened();
    /// The message has been shown to the user.
    void SceneRefused(const QString& message);
    /// The number of a choice, see Themes.
    void ThemeWanted(int choice);
    /// The desktop's colours may be others now.
    void DesktopChanged();

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void ConnectParts();
    void ConnectHints();
    void BuildMenus();
    void Start();
    void RestoreGeometry();
    [[nodiscard]] bool SettingsAreSaved();

    StudioHost& m_host;
    QUndoStack m_history;
    // In the order in which they need each other: the last one goes first.
    std::unique_ptr<WindowMessages> m_messages;
    std::unique_ptr<FileWork> m_work;
    std::unique_ptr<ScenePane> m_scene;
    std::unique_ptr<ShapeHiding> m_hiding;
    std::unique_ptr<ViewMenu> m_views;
    std::unique_ptr<ShapeMenu> m_shapes;
    std::unique_ptr<PanelDock> m_panel;
    std::unique_ptr<LargePreview> m_largePreview;
    std::unique_ptr<PanelLibraries> m_libraries;
    std::unique_ptr<LibraryLinks> m_links;
    std::unique_ptr<MaterialExchange> m_exchange;
    std::unique_ptr<WindowFiles> m_files;
    std::unique_ptr<SceneExchange> m_handing;
    std::unique_ptr<SceneRaytracing> m_raytracing;
    std::unique_ptr<TextureFinder> m_textures;
    std::unique_ptr<MaterialNaming> m_naming;
    std::unique_ptr<OutlinerDock> m_outliner;
    std::unique_ptr<MaterialCopying> m_copying;
    std::unique_ptr<OptionsEditing> m_options;
    HelpDesk* m_help = nullptr;
    Hints* m_hints = nullptr;
    bool m_quitsUnasked = false;
};

}  // namespace studio
