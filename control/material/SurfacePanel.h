#pragma once

#include "ColourField.h"
#include <CorvexMaterial/Attribute.h>

#include <QWidget>

#include <memory>
#include <vector>

class QLabel;
class QSlider;

namespace Ui {
class SurfacePanel;
}

namespace CorvexMaterial {

class AmountField;
class Trap;

/// Colour and amounts.
class SurfacePanel : public QWidget {
    Q_OBJECT

public:
    SurfacePanel(const Trap& trap, Choosers& choosers, Trial& trial, QWidget* parent);
    ~SurfacePanel() override;

    struct Amount {
        Attribute attribute;
        AmountField& field;
        QSlider& slider;
        QLabel& label;
    };

    ColourField& Color() { return *m_color; }
    [[nodiscard]] std::vector<Amount> Amounts() const;
    /// The amounts with their labels; the colour stays usable.
    void SetAmountsEnabled(bool enabled);

Q_SIGNALS:
    void ResetPressed();

private:
    void ConnectColor(Choosers& choosers, Trial& trial);
    void ConnectAmounts();

    const Trap& m_trap;
    std::unique_ptr<Ui::SurfacePanel> m_ui;
    ColourField* m_color = nullptr;
};

}  // namespace CorvexMaterial
