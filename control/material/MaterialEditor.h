#pragma once

#include "AttributeMenu.h"
#include "ChannelServices.h"
#include "ClipboardFlow.h"
#include "DifferenceMarks.h"
#include "ErrorHandler.h"
#include "LayoutFlow.h"
#include "MaterialGatherer.h"
#include "MaterialLibraryFlow.h"
#include "PanelAttributes.h"
#include "PanelForm.h"
#include "PreviewScene.h"
#include "SavedState.h"
#include "TextureLibraryFlow.h"
#include "TouchedRows.h"
#include "Trap.h"
#include "TrialFlow.h"
#include <CorvexMaterial/Host.h>
#include <CorvexMaterial/Platform.h>

#include <QObject>

#include <memory>
#include <string_view>

namespace CorvexMaterial {

class IMaterial;
class RaytraceFlow;

/// The control's doing: edits, flows of the saved state and the one refresh that all of them end
/// in. Its functions throw; the control's members and handlers call them through `Guard`.
class MaterialEditor : public QObject, private ChannelOwner {
    Q_OBJECT

public:
    MaterialEditor(Host& host, Platform& platform, IMaterial& control, QWidget& widget);
    ~MaterialEditor() override;

    [[nodiscard]] const Trap& Guard() const { return m_trap; }
    [[nodiscard]] Host& HostParts() { return m_host; }
    PanelForm& Form() { return m_form; }
    PanelAttributes& Attributes() { return m_attributes; }
    PreviewScene& Preview() { return m_preview; }
    LayoutFlow& Layout() { return m_layout; }
    LibraryFlow& MaterialLibrary() { return m_materialLibrary; }
    LibraryFlow& TextureLibrary() { return m_textureLibrary; }
    MaterialGatherer& Gatherer() { return m_gatherer; }
    Trial& Tried() { return m_trial; }
    TrialFlow& Previewing() { return m_trialFlow; }
    ClipboardFlow& Clipboard() { return m_clipboard; }

    /// Puts the material on the preview shape, redraws it and tells the host: the end of every
    /// edit. What the user has touched and the host could not be told is told then.
    void RefreshPreviewMaterial();
    /// The first of these alone.
    void ApplyToPreview();
    /// The first two; what fails is reported.
    void ShowPreview();
    /// Raises a warning that the user may silence; a failure of it is reported.
    void RequestWarning(std::string_view text, std::string_view key);
    void RenderMaterial();
    void InitializePreview();
    void SetPreviewPrimitive(std::int32_t code);
    void ResetDevices();

    /// Runs a change by program as one: its widgets' edits are not refreshed one by one, and the
    /// end is a single refresh. What the user touched before is not told any more.
    template <typename Change>
    void ChangeAtOnce(Change&& change)
    {
        ChangeSilently(change);
        // Inside another change that one's end refreshes.
        if (m_batchDepth == 0) {
            RefreshPreviewMaterial();
        }
    }
    /// The same for what the user has chosen: it is told as his edit of these attributes, which
    /// the change may fill in.
    template <typename Change>
    void EditAtOnce(const TouchedRows& touched, Change&& change)
    {
        ChangeAtOnce([&] {
            change();
            m_pending.Touch(touched);
        });
    }
    /// As an edit that puts another material in the place of the old one.
    template <typename Change>
    void EditWhole(TouchedRows rows, Change&& change, const std::string& name = {})
    {
        ChangeAtOnce([&] {
            change();
            m_pending.TouchWhole(std::move(rows), name);
        });
    }
    /// The same without a refresh.
    template <typename Change>
    void ChangeSilently(Change&& change)
    {
        m_trial.Reject();
        const Batch batch(m_batchDepth);
        const FollowAtEnd follow(*this);
        m_gatherer.Forget();
        m_pending.Forget();
        change();
    }

    void LoadSavedStatus();
    void ResetToFactory();
    /// As the user's edit of these attributes.
    void Edit(const std::vector<EditedRow>& rows);
    void ResetMiscellaneous();

    /// Leaves "None" alone in the plug-in list; a plug-in that was chosen leaves the material.
    void ClearPlugins();
    /// Shows a row per custom field that the host names now.
    void FillCustomFields();

    /// Marks what the shapes differ in that the next edit goes to.
    void ShowDifferences(const std::vector<DifferingRow>& rows);
    [[nodiscard]] const std::vector<DifferingRow>& Differences() const { return m_marks.Rows(); }

    /// Writes the state and the two lines of the event log; for the control's destructor.
    void Terminate();

Q_SIGNALS:
    void Edited(const CorvexMaterial::MaterialEdit& edit);
    void Changed();
    void PositionText(const QString& text);
    void StatusText(const QString& text);
    void WarningRequested(const QString& application, const QString& text, const QString& key);

private:
    /// Enabled states and the primitive's picture follow the attributes after an error too.
    class FollowAtEnd {
    public:
        explicit FollowAtEnd(MaterialEditor& editor) : m_editor(editor) {}
        ~FollowAtEnd() { m_editor.FollowAttributes(); }
        FollowAtEnd(const FollowAtEnd&) = delete;
        FollowAtEnd& operator=(const FollowAtEnd&) = delete;

    private:
        MaterialEditor& m_editor;
    };

    class Batch {
    public:
        explicit Batch(int& depth) : m_depth(depth) { ++m_depth; }
        ~Batch() { --m_depth; }
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;

    private:
        int& m_depth;
    };

    bool SimulationTextureActive() override;
    std::string TextureLibraryFile() override;

    void ConnectAttributes();
    void ConnectChannels();
    void ConnectPlugins();
    void ConnectPreview();
    void ConnectLibraries();
    [[nodiscard]] Status LoadSavedLibraries();
    void OnEdited(const TouchedRows& touched);
    void ApplyAndDraw();
    [[nodiscard]] MaterialEdit EditWithValues();
    [[nodiscard]] std::uint32_t GestureOf(const std::vector<EditedRow>& rows);
    [[nodiscard]] std::vector<QWidget*> ControlsOf(const TouchedRow& row);
    void TellHost();
    void ShowFactory(const TouchedRows& rows);
    void FollowAttributes();
    void UpdatePrimitivePicture();
    void OpenPrimitiveDialog();

    Host& m_host;
    Platform& m_platform;
    IMaterial& m_control;
    QWidget& m_widget;
    modCorvexGeneralErrorHandler m_errorHandler;
    Trap m_trap;
    Trial m_trial;
    PanelForm m_form;
    PanelAttributes m_attributes;
    PreviewScene m_preview;
    MaterialGatherer m_gatherer;
    TrialFlow m_trialFlow{*this, m_trial};
    SavedState m_savedState;
    LayoutFlow m_layout;
    MaterialLibraryFlow m_materialLibrary;
    TextureLibraryFlow m_textureLibrary;
    std::unique_ptr<RaytraceFlow> m_raytrace;
    DifferenceMarks m_marks{[this](const TouchedRow& row) { return ControlsOf(row); }};
    ClipboardFlow m_clipboard{*this, m_savedState};
    AttributeMenu m_menu{m_form, m_clipboard, m_trap,
                         [this](const TouchedRow& row) { return ControlsOf(row); }};
    PendingEdit m_pending;
    int m_batchDepth = 0;
};

}  // namespace CorvexMaterial
