#pragma once

#include "DifferenceMarks.h"
#include "LivePicture.h"
#include "RenderWait.h"
#include "TouchedRows.h"
#include "modRaytrace.h"
#include <CorvexMaterial/Host.h>
#include <CorvexMaterial/Platform.h>

#include <QDialog>
#include <QTimer>

#include <array>
#include <memory>
#include <optional>
#include <span>

namespace Ui {
class frmMaterialExtended;
}

class QComboBox;
class QSlider;

namespace CorvexMaterial {

class AmountField;
class RaytracedPreview;
class Swatch;
class Trap;

/// What the dialog works with; outlives it.
struct RaytraceDialogServices {
    const Trap& trap;
    Host& host;
    Platform& platform;
    RaytracedPreview& preview;
    std::span<const RaytracerRow> raytracers = Raytracers();
};

/// Edits the attributes that only a raytracer honours. Give it the record before it is shown, take
/// the record after it has closed.
class frmMaterialExtended : public QDialog {
    Q_OBJECT

public:
    /// The material is what the attributes belong to; the picture shows its colour and amounts.
    frmMaterialExtended(const RaytraceDialogServices& services,
                        const CorvexDB::udtMaterial& material, QWidget* parent);
    ~frmMaterialExtended() override;

    void
    put_cdtRayTraceMaterialAttributes(const CorvexDB::cdtRayTraceMaterialAttributes& attributes);
    [[nodiscard]] const CorvexDB::cdtRayTraceMaterialAttributes&
    get_cdtRayTraceMaterialAttributes() const
    {
        return m_record;
    }
    /// Marks what the shapes differ in that will get the record.
    void ShowDifferences(const std::vector<DifferingRow>& rows) { m_marks.Show(rows); }
    [[nodiscard]] bool OKClicked() const { return m_okClicked; }
    /// What the user has set in it, be it to what it was.
    [[nodiscard]] const TouchedRows& Touched() const { return m_touched; }
    /// File of the texture that was made to stand for the attributes in real time; empty when none
    /// was made.
    [[nodiscard]] const std::string& SimulationTexture() const { return m_simulationTexture; }

    /// Stays where it is while a raytracer works.
    void accept() override;
    void reject() override;
    void done(int result) override;

private:
    struct SliderRow {
        QSlider* slider;
        AmountField* value;
    };
    class ButtonsOff;

    void FillLists();
    void Connect();
    void ConnectAmounts();
    void ConnectSwatches();
    void ShowDefaults();
    void ReadControls();
    void Touch(Attribute attribute);
    [[nodiscard]] std::vector<QWidget*> ControlsOf(Attribute attribute) const;
    [[nodiscard]] std::vector<std::pair<QComboBox*, Attribute>> Lists() const;

    void OnMaterialType();
    void OnPredefinedType();
    void OnColorPattern();
    void OnNormalPattern();
    void ChooseColour(std::size_t swatch);
    void ShowColour(std::size_t swatch, Colour colour);

    void FollowRaytracer();
    void UpdateEnabled();
    void ShowSameColours();
    void Follow();

    void RaytracePicture();
    void MakeSimulationTexture();
    void SaveSimulation(const std::string& bitmap);

    RaytraceDialogServices m_services;
    CorvexDB::udtMaterial m_material;
    std::unique_ptr<Ui::frmMaterialExtended> m_ui;
    std::array<SliderRow, 12> m_sliders{};
    std::array<Swatch*, 4> m_swatches{};
    std::unique_ptr<OpenColourDialog> m_colours;
    std::array<bool, 4> m_swatchUsed{true, true, true, true};
    QTimer m_followSoon;
    modRaytrace m_raytrace;
    RenderWait m_wait;
    std::optional<LivePicture> m_picture;
    CorvexDB::cdtRayTraceMaterialAttributes m_record;
    std::string m_simulationTexture;
    TouchedRows m_touched;
    DifferenceMarks m_marks{[this](const TouchedRow& row) { return ControlsOf(row.attribute); }};
    bool m_okClicked = false;
    bool m_rendering = false;
};

}  // namespace CorvexMaterial
