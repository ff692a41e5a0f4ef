// The pictures that the dialog has the host and the raytracer make.

#include "frmMaterialExtended.h"

#include "ErrorTexts.h"
#include "RaytraceMessages.h"
#include "RaytracedPreview.h"
#include "Trap.h"
#include "modDialog.h"
#include "ui_frmMaterialExtended.h"
#include <CorvexMaterial/SimulationTexture.h>
#include <CorvexMaterial/WarningCatalogue.h>

namespace CorvexMaterial {

namespace {

constexpr std::int32_t kJpegQuality = 80;

}  // namespace

/// Nothing can be pressed while a raytracer works; everything can again afterwards.
class frmMaterialExtended::ButtonsOff {
public:
    explicit ButtonsOff(frmMaterialExtended& dialog) : m_dialog(dialog) { Set(false); }
    ~ButtonsOff() { Set(true); }
    ButtonsOff(const ButtonsOff&) = delete;
    ButtonsOff& operator=(const ButtonsOff&) = delete;

private:
    void Set(bool enabled)
    {
        m_dialog.m_rendering = !enabled;
        if (!enabled && m_dialog.m_picture) {
            m_dialog.m_followSoon.stop();
            m_dialog.m_picture->LetBe();
        }
        const Ui::frmMaterialExtended& form = *m_dialog.m_ui;
        for (QPushButton* button : {form.cmdOK, form.cmdCancel, form.cmdDefault, form.cmdPreview}) {
            button->setEnabled(enabled);
        }
    }

    frmMaterialExtended& m_dialog;
};

void frmMaterialExtended::RaytracePicture()
{
    const ButtonsOff buttonsOff(*this);
    if (!m_raytrace.CheckRaytracer()) {
        return;
    }
    m_raytrace.ReportingFailure([this] {
        ReadControls();
        const std::int32_t antialias = m_services.host.applicationState.AntialiasChoice();
        m_picture.value().WithMaterial(m_material, [&](CorvexSG::Scene& scene,
                                                       CorvexViewport::PixelSize size) {
            m_raytrace.Render({scene, CorvexSG::RaytraceView::Scene, size, antialias, &m_wait},
                              [this](const std::string& bitmap) { m_picture->ShowBitmap(bitmap); });
        });
    });
}

void frmMaterialExtended::accept()
{
    if (m_rendering) {
        return;
    }
    ReadControls();
    m_record = m_material.RayTrace;
    if (WantsSimulation(m_record)) {
        // Made or not, the dialog closes with OK.
        m_services.trap("cmdOK", [this] { MakeSimulationTexture(); });
    }
    m_okClicked = true;
    QDialog::accept();
}

void frmMaterialExtended::reject()
{
    if (!m_rendering) {
        QDialog::reject();
    }
}

void frmMaterialExtended::done(int result)
{
    QDialog::done(result);
    // Out of sight by now: a raytracer may need half a second to end.
    m_followSoon.stop();
    if (m_picture) {
        m_picture->LetBe();
    }
}

void frmMaterialExtended::MakeSimulationTexture()
{
    if (!m_raytrace.CheckRaytracer()) {
        return;
    }
    const WarningRow& notice = RowOf(WarningId::SimulationTexture);
    modDialog(m_services.platform.settings, m_services.platform.prompts,
              m_services.host.diagnostics, this)
        .ShowWarning({m_services.host.applicationState.SettingsApplicationName(),
                      std::string(notice.text), std::string(notice.key), std::string(notice.key)});
    const ButtonsOff buttonsOff(*this);
    m_raytrace.ReportingFailure([this] {
        const CorvexViewport::PixelSize size = m_services.preview.Prepare();
        const std::int32_t antialias = m_services.host.applicationState.AntialiasChoice();
        m_services.preview.WithAttributes(m_record, [&](CorvexSG::Scene& scene) {
            m_raytrace.Render({scene, CorvexSG::RaytraceView::FlatSample, size, antialias, &m_wait},
                              [this](const std::string& bitmap) { SaveSimulation(bitmap); });
        });
    });
}

void frmMaterialExtended::SaveSimulation(const std::string& bitmap)
{
    const std::string jpeg = m_services.platform.temporaryFiles.Claim("jpg");
    try {
        if (!m_services.platform.imageFormats.CanWriteJpeg()) {
            throw Error(Status::NotAvailable, "there is no JPEG writer");
        }
        m_services.host.raytrace.SaveAsJpeg(bitmap, jpeg, kJpegQuality);
        m_simulationTexture = m_services.host.raytrace.KeepSimulation(jpeg);
    } catch (...) {
        RemoveQuietly(m_services.platform.temporaryFiles, m_services.host.diagnostics, jpeg);
        const ErrorReport report = Describe(std::current_exception(), "SaveAsJpeg");
        m_services.platform.prompts.Show({PromptIcon::Exclamation, std::string(kBoxTitle),
                                          std::string(kJpegWriterMissing), report.description});
    }
}

}  // namespace CorvexMaterial
