#pragma once

#include <CorvexMaterial/Colour.h>
#include <CorvexMaterial/Prompts.h>

#include <QObject>

#include <vector>

class QAbstractButton;
class QComboBox;
class QWidget;

namespace CorvexMaterial {

class Swatch;

/// The three views of the material colour: named list, swatch and colour dialog.
class ColourField : public QObject {
    Q_OBJECT

public:
    struct Widgets {
        QComboBox& list;
        Swatch& swatch;
        QAbstractButton& button;
    };

    ColourField(const Widgets& widgets, QObject* parent);

    [[nodiscard]] Colour Value() const { return m_colour; }
    void Show(Colour colour);
    /// The widgets in which the colour is seen.
    [[nodiscard]] std::vector<QWidget*> Shown() const;

    /// A named entry; "Custom" asks for a colour first.
    void ChooseEntry(int position, Choosers& choosers);
    void ChooseFromDialog(Choosers& choosers);

Q_SIGNALS:
    void Edited();
    void EntryChosen(int position);
    void DialogWanted();

private:
    Widgets m_widgets;
    Colour m_colour = kWhite;
};

}  // namespace CorvexMaterial
