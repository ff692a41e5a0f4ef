#include "ColourField.h"

#include "DrawnIcon.h"
#include "Swatch.h"
#include "Trial.h"
#include <CorvexMaterial/NamedColours.h>

#include <QComboBox>
#include <QPainter>

namespace CorvexMaterial {

namespace {

QIcon ColourIcon(Colour colour)
{
    const ColourBytes bytes = BytesOf(colour);
    return DrawnIcon(14, [bytes](QPainter& painter, QIcon::Mode) {
        painter.setPen(QColor(Qt::gray).darker(125));  // seen on light and on dark
        painter.setBrush(QColor(bytes.red, bytes.green, bytes.blue));
        painter.drawRect(QRectF(0.5, 0.5, 13, 13));
    });
}

}  // namespace

ColourField::ColourField(const Widgets& widgets, Choosers& choosers, Trial& trial, QObject* parent)
    : QObject(parent), m_widgets(widgets), m_trial(trial), m_dialog(choosers, trial)
{
    for (const NamedColour& row : kNamedColours) {
        m_widgets.list.addItem(ColourIcon(row.colour), QString::fromUtf8(row.name));
    }
    m_widgets.list.addItem(QString::fromUtf8(kCustomColourName));
    Show(m_colour);
    connect(&m_widgets.list, &QComboBox::activated, this, &ColourField::EntryChosen);
    for (QAbstractButton* button :
         std::initializer_list<QAbstractButton*>{&m_widgets.swatch, &m_widgets.button}) {
        connect(button, &QAbstractButton::clicked, this,
                [this, button] { Q_EMIT DialogWanted(button); });
    }
}

void ColourField::Show(Colour colour)
{
    m_colour = colour;
    m_widgets.swatch.SetColour(colour);
    m_widgets.list.setCurrentIndex(static_cast<int>(ColourListPosition(colour)));
}

std::vector<QWidget*> ColourField::Shown() const
{
    return {&m_widgets.list, &m_widgets.swatch};
}

void ColourField::ChooseEntry(int position)
{
    if (position < 0 || position >= static_cast<int>(kNamedColours.size())) {
        ChooseFromDialog(m_widgets.list);
        return;
    }
    Show(kNamedColours[static_cast<std::size_t>(position)].colour);
    Q_EMIT Edited();
}

// What is tried is seen in the swatch; the field's colour is still the old one.
void ColourField::ChooseFromDialog(QWidget& beside)
{
    m_dialog.Open(m_colour, beside,
                  {[this](Colour tried) {
                       m_widgets.swatch.SetColour(tried);
                       m_trial.Show({{Attribute::Color, 0, tried}});
                   },
                   [this](std::optional<Colour> chosen) { Take(chosen); }});
}

void ColourField::Take(std::optional<Colour> chosen)
{
    Show(chosen.value_or(m_colour));
    if (chosen) {
        Q_EMIT Edited();
    }
}

}  // namespace CorvexMaterial
