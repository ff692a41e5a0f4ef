#pragma once

#include "material/ColourField.h"

#include <QWidget>

#include <memory>

namespace Ui {
class AttributePanel;
}

class QSlider;

namespace CorvexMaterial {

class AmountField;
class Trap;

/// The material's own attributes. Every change of an attribute is one `Edited`.
class AttributePanel : public QWidget {
    Q_OBJECT

public:
    AttributePanel(const Trap& trap, Choosers& choosers, QWidget* parent);
    ~AttributePanel() override;

    Ui::AttributePanel& Form() { return *m_ui; }
    ColourField& Color() { return *m_color; }

    void FillAlphaTests();

Q_SIGNALS:
    void Edited();
    void AlphaIsTransparentClicked();
    void RememberPressed();
    void UserDefaultsPressed();
    void FactoryDefaultsPressed();
    void MiscellaneousResetPressed();
    void AdvancedResetPressed();

private:
    void FillLists();
    void ConnectColor();
    void ConnectAmounts();
    void ConnectFlags();
    void ConnectButtons();
    void LinkSlider(QSlider& slider, AmountField& field);
    void FollowAlphaTest();

    const Trap& m_trap;
    Choosers& m_choosers;
    std::unique_ptr<Ui::AttributePanel> m_ui;
    ColourField* m_color = nullptr;
};

}  // namespace CorvexMaterial
