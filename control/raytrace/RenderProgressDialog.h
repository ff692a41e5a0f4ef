#pragma once

#include <QDialog>
#include <QPointer>

#include <memory>
#include <optional>
#include <vector>

namespace Ui {
class RenderProgressDialog;
}

namespace CorvexMaterial {

/// How far a raytracer is, over the picture that it renders. Its Cancel is the only thing that can
/// be pressed while it lives. It is not modal for that: a modal window would keep the one below it
/// from hearing that it is to be closed. Closing that one cancels, and closes it afterwards, when
/// nobody works under it any more.
class RenderProgressDialog : public QDialog {
    Q_OBJECT

public:
    explicit RenderProgressDialog(QWidget& over);
    ~RenderProgressDialog() override;

    /// Nothing while the renderer has not said how far it is.
    void ShowPercent(std::optional<int> percent);
    /// Lets the user press Cancel; true once he has, and the window is gone then.
    [[nodiscard]] bool HandleInput();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Open();
    [[nodiscard]] bool IsBelow(const QWidget& window) const;
    [[nodiscard]] bool IsShut(const QObject& receiver) const;

    QWidget& m_over;
    std::unique_ptr<Ui::RenderProgressDialog> m_ui;
    std::vector<QPointer<QWidget>> m_toClose;
    bool m_opened = false;
    bool m_cancelled = false;
};

}  // namespace CorvexMaterial
