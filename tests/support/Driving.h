#pragma once

#include <QPointer>
#include <QString>
#include <QTimer>

#include <functional>

class QComboBox;
class QDialog;
class QLineEdit;
class QWidget;

namespace CorvexTest {

// Events as a person causes them. Each throws std::logic_error when a person could not: the widget
// is hidden or disabled.

void Click(QWidget& widget);
/// Replaces the text, key by key.
void Type(QLineEdit& field, const QString& text);
/// Opens the list and takes the entry of this exact text.
void Choose(QComboBox& list, const QString& entry);

/// Answers the next modal dialog: call it before the click that opens the dialog.
class DialogAnswer {
public:
    explicit DialogAnswer(std::function<void(QDialog&)> answer);
    DialogAnswer(const DialogAnswer&) = delete;
    DialogAnswer& operator=(const DialogAnswer&) = delete;

    /// False when no dialog has opened so far.
    [[nodiscard]] bool Given() const { return m_given; }

private:
    void Look();

    std::function<void(QDialog&)> m_answer;
    QTimer m_timer;
    bool m_given = false;
};

}  // namespace CorvexTest
