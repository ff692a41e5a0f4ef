#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>

namespace studio {

/// Keeps the user off the window while something is read, and offers to cancel it. It comes up only
/// when that takes long enough to be noticed.
class WaitDialog : public QProgressDialog {
    Q_OBJECT

public:
    /// The text may hold names from files. Without steps the bar just moves.
    WaitDialog(const QString& text, QWidget* parent, int steps = 0);

    /// The window may be used meanwhile.
    void LetWindowGoOn();
    /// For work that asks now and then whether to go on. Events are handled only once the dialog is
    /// there to keep them off the window.
    [[nodiscard]] bool Cancelled();

    /// Not over a message that waits for an answer: it would keep the user off that, too.
    void setVisible(bool visible) override;

Q_SIGNALS:
    void ShownOrHidden();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QElapsedTimer m_shownLater;
};

}  // namespace studio
