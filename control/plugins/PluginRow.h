#pragma once

#include <CorvexMaterial/Colour.h>
#include <CorvexMaterial/PluginParameter.h>

#include <QObject>

#include <vector>

class QCheckBox;
class QComboBox;
class QLabel;
class QSlider;
class QWidget;

namespace CorvexMaterial {

class AmountField;
class Swatch;
class UpDownText;

/// One parameter on the panel: its caption and an editor of every kind, of which one is shown.
/// The widgets are children of the panel, named after their array and the row's number.
class PluginRow : public QObject {
    Q_OBJECT

public:
    PluginRow(std::size_t number, QWidget& panel);

    void Hide();
    /// Parameter and value are checked ones. Nothing is signalled.
    void Show(const CorvexDB::PluginParameter& parameter, float value);
    [[nodiscard]] const CorvexDB::PluginParameter& Parameter() const { return m_parameter; }

    /// As the editor of a kind shows it; 0 for a kind without editor. Errors: ConversionFailed when
    /// a text is no number.
    [[nodiscard]] float Value(CorvexDB::ParameterKind kind) const;
    /// The same as text, a number's as it is shown.
    [[nodiscard]] std::string Text() const;

    /// Of every kind.
    [[nodiscard]] std::vector<QWidget*> Editors() const;
    [[nodiscard]] UpDownText& Number() { return *m_number; }
    [[nodiscard]] std::size_t Index() const { return m_row; }
    [[nodiscard]] Swatch& ColourButton() { return *m_swatch; }
    [[nodiscard]] Colour SwatchColour() const { return m_colour; }
    void ShowColour(Colour colour);

    /// Lays the row out in a panel of this width, logical pixels; heights are for the font of the
    /// design, times a scale.
    void Place(int width, double scale);

Q_SIGNALS:
    void Edited();
    void NumberConfirmed();
    void SwatchPressed();

private:
    void Connect();
    [[nodiscard]] QString Name() const;
    void ShowEditor(QWidget& editor);
    void ShowSlider(float value);
    void ShowNumber(float value);
    void ShowList(float value);
    void ShowTick(float value);

    std::size_t m_row = 0;
    CorvexDB::PluginParameter m_parameter;
    Colour m_colour = 0;
    QLabel* m_caption;
    QSlider* m_slider;
    AmountField* m_position;
    UpDownText* m_number;
    QComboBox* m_list;
    QCheckBox* m_tick;
    Swatch* m_swatch;
};

}  // namespace CorvexMaterial
