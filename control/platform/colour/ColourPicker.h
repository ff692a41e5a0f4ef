#pragma once

#include "HsvColour.h"

#include <QDialog>

#include <array>
#include <memory>
#include <optional>

namespace Ui {
class ColourPicker;
}

class QSpinBox;

namespace CorvexMaterial {

class ColourHistory;
class Eyedropper;
class Swatch;

/// Chooses a colour: by sight, by numbers, from those used last, or from what the windows show.
class ColourPicker : public QDialog {
    Q_OBJECT

public:
    /// The history outlives the dialog.
    ColourPicker(ColourHistory& history, QWidget* parent);
    ~ColourPicker() override;

    /// The colour to begin with, which the dialog keeps in sight.
    void Begin(Colour colour);
    [[nodiscard]] Colour Shown() const;
    /// Whether the user has tried any.
    [[nodiscard]] bool IsTouched() const { return m_touched; }

    /// Remembers the colour.
    void accept() override;

Q_SIGNALS:
    /// The user looks at this one; it is not chosen yet.
    void Tried(int colour);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void ConnectFields();
    void ConnectNumbers();
    void ConnectEyedropper();
    void AddRecent();
    void TakeHex(const QString& text);
    /// The field that the user works in is left alone.
    void Show(const HsvColour& colour, const QWidget* source);
    void Try(const HsvColour& colour, const QWidget* source);

    ColourHistory& m_history;
    std::unique_ptr<Ui::ColourPicker> m_ui;
    Eyedropper* m_eyedropper;
    std::array<QSpinBox*, 3> m_hsv{};
    std::array<QSpinBox*, 3> m_rgb{};
    HsvColour m_colour;
    QPoint m_dragFrom;
    bool m_touched = false;
};

}  // namespace CorvexMaterial
