#pragma once

#include "FieldMoves.h"
#include "LibrarySchema.h"
#include "MaterialLink.h"
#include "ModelImport.h"
#include "RecentFiles.h"
#include "Selection.h"
#include "StudioScene.h"
#include "WarningPresenter.h"
#include <CorvexMaterial/Material.h>

#include <QMainWindow>
#include <QUndoStack>

class QDockWidget;
class QLabel;
class QMenu;

namespace CorvexMaterial {
struct SceneFacts;
}

namespace studio {

class LibraryBrowser;
class LibraryDesk;
class MaterialExchange;
class ModelOpener;
class PanelArea;
class PanelFill;
class StatusMessage;
class StudioHost;
class ViewportWidget;
struct RaytraceScene;
struct TextureReplacement;

/// The studio's window: the scene in the middle, the material panel docked beside it.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// Host and platform outlive the window.
    MainWindow(StudioHost& host, CorvexMaterial::Platform& platform, ImportProgram importer = {},
               MaterialLink::Clock clock = SteadyNow);
    ~MainWindow() override;

    /// A library is shown in the panel; everything else is a model.
    void OpenFile(const QString& file);
    /// Reads the model in the background; `SceneOpened` or `SceneRefused` follows. What is shown
    /// stays until it is read, and for good when it cannot be.
    void OpenModel(const QString& file);
    void ResetScene();
    /// Writes what the viewport shows for the raytracer that the name's ending tells, and tells the
    /// user when that fails.
    void ExportScene(const QString& file);
    /// In a window of its own.
    void RenderScene();
    /// What closing the window saves.
    void Save();
    /// Closing the window asks nothing any more.
    void QuitUnasked() { m_quitsUnasked = true; }
    /// Looks below the folder for the textures the scene misses and offers what it finds.
    void FindTexturesIn(const QString& folder);

    [[nodiscard]] CorvexMaterial::Material& Panel() { return *m_material; }
    [[nodiscard]] const StudioScene& Scene() const { return m_scene; }
    [[nodiscard]] Selection& Selected() { return m_selection; }
    [[nodiscard]] QUndoStack& History() { return m_history; }
    [[nodiscard]] MaterialExchange& Exchange() { return *m_exchange; }
    [[nodiscard]] ViewportWidget& Viewport() { return *m_viewport; }
    [[nodiscard]] QDockWidget& Dock() { return *m_dock; }

Q_SIGNALS:
    void SceneOpened();
    /// The message has been shown to the user.
    void SceneRefused(const QString& message);

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildViewport();
    void BuildDock();
    void BuildMenus();
    void BuildFileMenu();
    void BuildRaytraceMenu(QMenu* menu);
    void ConnectExchange();
    void BuildEditMenu();
    void BuildViewMenu();
    void BuildLibraryMenu();
    void BuildHelpMenu();
    void BuildStatusBar();
    void TellSelection();
    void ListRecentFiles(QMenu* menu);
    void ConnectPanel();
    void ConnectPlugins();
    void StartPanel();
    void ProvideFirstLibraries();
    void ConnectLibraries();
    void DisconnectLibraries();
    void ConnectDrops();
    void PressLibraryButton(LibraryKind kind, const char* button);
    void EmptyTrash();
    void ShowEntryMenu(LibraryBrowser& browser, QPoint globalPosition);
    void KeepLibraries();
    void ListPlugins();
    void ApplyColours();
    void RestoreGeometry();
    [[nodiscard]] bool SettingsAreSaved();
    void SaveLayout();

    void ChooseFile();
    void OpenLibrary(const QString& file, LibraryKind kind);
    void ShowModel(const QString& file, const ImportedModel& model);
    void RefuseModel(const QString& file, const QString& message);
    void ShowShapes(StudioScene::Shapes shapes, const QString& title);
    [[nodiscard]] std::shared_ptr<StudioShape> ShapeAt(QPoint position) const;
    [[nodiscard]] RaytraceScene SceneToRaytrace();
    void KeepExportFolder(const QString& folder);
    void ChooseExport(const CorvexMaterial::SceneFacts& scene);
    void FindTextures();
    void ReplaceTextures(const std::vector<TextureReplacement>& chosen);
    void PickAt(QPoint position, Qt::KeyboardModifiers modifiers);
    void SelectAll();
    void Frame(StudioScene& scene);
    void ShowOptions();
    void ApplyFieldNames(const FieldMoves& moves);
    void MoveFieldValues(const FieldMoves& moves);
    void ShowAbout();
    void RestoreWarnings();
    void Tell(const QString& text, CorvexMaterial::PromptIcon icon);
    void Check(CorvexMaterial::Status status, const QString& what);

    StudioHost& m_host;
    CorvexMaterial::Platform& m_platform;
    StudioScene m_scene;
    Selection m_selection;
    QUndoStack m_history;
    RecentFiles m_recent;
    WarningPresenter m_warnings;
    MaterialExchange* m_exchange = nullptr;
    ModelOpener* m_opener = nullptr;
    ViewportWidget* m_viewport = nullptr;
    QDockWidget* m_dock = nullptr;
    PanelArea* m_area = nullptr;
    CorvexMaterial::Material* m_material = nullptr;
    MaterialLink* m_link = nullptr;
    PanelFill* m_fill = nullptr;
    LibraryDesk* m_desk = nullptr;
    QLabel* m_position = nullptr;
    StatusMessage* m_misc = nullptr;
    bool m_quitsUnasked = false;
};

}  // namespace studio
