#pragma once

#include "Testing.h"

class QComboBox;
class QDialog;
class QLineEdit;
class QMimeData;

namespace CorvexTest {

template <typename Widget>
Widget& FindIn(const QWidget& parent, const QString& name)
{
    auto* found = parent.findChild<Widget*>(name);
    if (found == nullptr) {
        throw std::logic_error("there is no " + name.toStdString());
    }
    return *found;
}

// Events as a person causes them. Each throws std::logic_error when a person could not: the widget
// is hidden or disabled.

void Click(QWidget& widget);
/// Replaces the text, key by key.
void Type(QLineEdit& field, const QString& text);
/// Opens the list and takes the entry of this exact text.
void Choose(QComboBox& list, const QString& entry);
/// False when the widget does not take it there.
bool Drop(QWidget& widget, const QMimeData& data, QPoint at);
bool DropFile(QWidget& widget, const QString& file, QPoint at);

[[nodiscard]] QDialog* OpenDialog();

/// Answers the next dialog: call it before the click that opens the dialog. One that does not wait
/// for its answer has it at the latest when this goes.
class DialogAnswer {
public:
    explicit DialogAnswer(std::function<void(QDialog&)> answer);
    ~DialogAnswer();
    DialogAnswer(const DialogAnswer&) = delete;
    DialogAnswer& operator=(const DialogAnswer&) = delete;

    /// False when no dialog has opened so far.
    [[nodiscard]] bool Given() const;

private:
    void Look() const;

    std::function<void(QDialog&)> m_answer;
    mutable QTimer m_timer;
    mutable bool m_given = false;
};

}  // namespace CorvexTest
