#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class AdvancedPanel;
}

namespace CorvexMaterial {

/// Sides, alpha test and how the material is applied.
class AdvancedPanel : public QWidget {
    Q_OBJECT

public:
    explicit AdvancedPanel(QWidget* parent);
    ~AdvancedPanel() override;

    Ui::AdvancedPanel& Form() { return *m_ui; }
    /// Fills the list anew and keeps its position.
    void FillAlphaTests();

Q_SIGNALS:
    void ResetPressed();

private:
    void FollowAlphaTest();

    std::unique_ptr<Ui::AdvancedPanel> m_ui;
};

}  // namespace CorvexMaterial
