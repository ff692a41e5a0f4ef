#pragma once

#include "ColourTrial.h"
#include <CorvexMaterial/Colour.h>

#include <QObject>

#include <vector>

class QAbstractButton;
class QComboBox;
class QWidget;

namespace CorvexMaterial {

class Swatch;
class Trial;

/// The three views of the material colour: named list, swatch and colour dialog.
class ColourField : public QObject {
    Q_OBJECT

public:
    struct Widgets {
        QComboBox& list;
        Swatch& swatch;
        QAbstractButton& button;
    };

    /// Choosers and trial outlive the field.
    ColourField(const Widgets& widgets, Choosers& choosers, Trial& trial, QObject* parent);

    [[nodiscard]] Colour Value() const { return m_colour; }
    void Show(Colour colour);
    /// The widgets in which the colour is seen.
    [[nodiscard]] std::vector<QWidget*> Shown() const;

    /// A named entry; "Custom" asks for a colour first.
    void ChooseEntry(int position);
    /// The dialog opens near the widget.
    void ChooseFromDialog(QWidget& beside);

Q_SIGNALS:
    void Edited();
    void EntryChosen(int position);
    void DialogWanted(QWidget* beside);

private:
    void Take(std::optional<Colour> chosen);

    Widgets m_widgets;
    Trial& m_trial;
    ColourTrial m_dialog;
    Colour m_colour = kWhite;
};

}  // namespace CorvexMaterial
