#pragma once

#include <QColor>
#include <QObject>
#include <QString>

#include <vector>

class QWidget;

namespace CorvexMaterial {

/// What is told in the place of a value where several shapes have several.
[[nodiscard]] QString MultipleValues();

/// Lies over a control whose value is that of one shape while others have another one. The control
/// keeps text, value and signals; painted, in its tool tip and to what reads it aloud it has the
/// mark. A text box, a list and a slider show their own while they have the keyboard.
class DifferenceMark : public QObject {
    Q_OBJECT

public:
    /// What is told of the values, and those of them that are colours.
    struct Values {
        QString text;
        std::vector<QColor> colours;

        bool operator==(const Values&) const = default;
    };

    /// Of the control; made when first asked for, with no mark on it.
    static DifferenceMark& Of(QWidget& control);
    [[nodiscard]] static bool IsOn(const QWidget& control);

    void Show(const Values& values);
    void Hide();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit DifferenceMark(QWidget& control);
    [[nodiscard]] QString ToolTip() const;

    QWidget& m_control;
    Values m_values;
    QString m_description;  ///< of the control without the mark
    bool m_isOn = false;
};

}  // namespace CorvexMaterial
