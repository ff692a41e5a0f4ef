#pragma once

#include <QDialog>

#include <memory>
#include <optional>

namespace Ui {
class RenderProgressDialog;
}

namespace CorvexMaterial {

/// How far a raytracer is, over the picture that it renders. Modal for the whole application, so
/// that its Cancel is the only thing that can be pressed.
class RenderProgressDialog : public QDialog {
    Q_OBJECT

public:
    explicit RenderProgressDialog(QWidget& over);
    ~RenderProgressDialog() override;

    /// Nothing while the renderer has not said how far it is.
    void ShowPercent(std::optional<int> percent);
    /// Lets the user press Cancel; true once he has, and the window is gone then.
    [[nodiscard]] bool HandleInput();

private:
    void Open();

    QWidget& m_over;
    std::unique_ptr<Ui::RenderProgressDialog> m_ui;
    bool m_opened = false;
    bool m_cancelled = false;
};

}  // namespace CorvexMaterial
