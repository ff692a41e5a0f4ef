#include "PluginRow.h"

#include "AmountField.h"
#include "ArgumentChecks.h"
#include "DifferenceMark.h"
#include "PluginParameters.h"
#include "Swatch.h"
#include <CorvexMaterial/NumberText.h>
#include <CorvexMaterial/PlainText.h>
#include <CorvexMaterial/Status.h>
#include <CorvexMaterial/Twips.h>
#include <CorvexMaterial/UpDownText.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>

#include <algorithm>

namespace CorvexMaterial {

namespace {

using CorvexDB::ParameterKind;

constexpr int kCaptionShare = 38;  // percent of the width
constexpr int kEditorGap = 6;

template <typename Widget>
Widget* Element(const char* array, std::size_t row, QWidget& panel)
{
    auto* widget = new Widget(&panel);
    widget->setObjectName(QString::fromLatin1(array) + QLatin1Char('_') + QString::number(row));
    widget->hide();
    return widget;
}

}  // namespace

PluginRow::PluginRow(std::size_t number, QWidget& panel)
    : QObject(&panel), m_row(number), m_caption(Element<QLabel>("lblParameter", number, panel)),
      m_slider(Element<QSlider>("sldParameter", number, panel)),
      m_position(Element<AmountField>("txtParameterPosition", number, panel)),
      m_number(Element<UpDownText>("txtParameter", number, panel)),
      m_list(Element<QComboBox>("cboParameter", number, panel)),
      m_tick(Element<QCheckBox>("chkParameter", number, panel)),
      m_swatch(Element<Swatch>("picParameter", number, panel))
{
    m_caption->setTextFormat(Qt::PlainText);
    m_slider->setOrientation(Qt::Horizontal);
    m_slider->setFocusPolicy(Qt::StrongFocus);
    m_slider->setSingleStep(1);
    m_slider->setTickPosition(QSlider::TicksBelow);
    m_position->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_list->setFocusPolicy(Qt::StrongFocus);
    Connect();
}

void PluginRow::Connect()
{
    m_position->Input().ShowSlider(*m_slider);
    m_position->Input().DragOn(*m_caption);
    m_number->DragOn(*m_caption);
    connect(&m_position->Input(), &NumberInput::Retaken, this, [this] {
        if (DifferenceMark::IsOn(*m_position)) {
            Q_EMIT Edited();
        }
    });
    connect(m_slider, &QSlider::valueChanged, this, &PluginRow::Edited);
    connect(m_number, &UpDownText::Confirmed, this, &PluginRow::NumberConfirmed);
    connect(m_number, &UpDownText::Typed, this, &PluginRow::Edited);
    connect(m_number, &UpDownText::Retaken, this, [this] {
        if (DifferenceMark::IsOn(*m_number)) {
            Q_EMIT Edited();
        }
    });
    connect(m_list, &QComboBox::currentIndexChanged, this, &PluginRow::Edited);
    connect(m_tick, &QCheckBox::toggled, this, &PluginRow::Edited);
    connect(m_swatch, &Swatch::clicked, this, &PluginRow::SwatchPressed);
}

void PluginRow::Hide()
{
    m_caption->hide();
    for (QWidget* editor : Editors()) {
        editor->hide();
    }
}

std::vector<QWidget*> PluginRow::Editors() const
{
    return {m_slider, m_position, m_number, m_list, m_tick, m_swatch};
}

void PluginRow::Show(const CorvexDB::PluginParameter& parameter, float value)
{
    m_parameter = parameter;
    m_caption->setText(PlainCaption(Name()));
    m_caption->setToolTip(PlainTip(Name()));
    m_caption->setVisible(parameter.kind != ParameterKind::Tick);
    switch (parameter.kind) {
    case ParameterKind::Slider:
        return ShowSlider(value);
    case ParameterKind::Number:
        return ShowNumber(value);
    case ParameterKind::List:
    case ParameterKind::Shape:
    case ParameterKind::SimpleShape:
        return ShowList(value);
    case ParameterKind::Tick:
        return ShowTick(value);
    case ParameterKind::PackedColour:
        ShowColour(UnpackColour(value));
        return ShowEditor(*m_swatch);
    default:
        return;
    }
}

QString PluginRow::Name() const
{
    return QString::fromStdString(m_parameter.name);
}

void PluginRow::ShowEditor(QWidget& editor)
{
    editor.setAccessibleName(Name());
    m_caption->setBuddy(&editor);
    editor.show();
}

void PluginRow::ShowSlider(float value)
{
    const QSignalBlocker quiet(m_slider);
    const SliderSetting setting = SliderSettingOf(m_parameter);
    m_slider->setRange(setting.minimum, setting.maximum);
    m_slider->setTickInterval(setting.tickFrequency);
    m_slider->setPageStep(setting.largeChange);
    m_slider->setValue(RoundHalfEven(std::clamp<double>(value, setting.minimum, setting.maximum)));
    NumberRules rules = m_position->Input().Rules();
    rules.least = setting.minimum;
    rules.most = setting.maximum;
    m_position->Input().SetRules(rules);
    m_position->Input().ShowQuietly(m_slider->value());
    m_position->setAccessibleName(Name());
    ShowEditor(*m_slider);
    m_position->show();
}

void PluginRow::ShowNumber(float value)
{
    m_number->SetNumbers(
        {m_parameter.minimum, m_parameter.maximum, m_parameter.step, m_parameter.boxDefault});
    m_number->ShowText(QString::fromStdString(TextOfSingle(value)));
    ShowEditor(*m_number);
}

void PluginRow::ShowList(float value)
{
    const QSignalBlocker quiet(m_list);
    m_list->clear();
    for (const std::string& choice : ChoicesOf(m_parameter)) {
        m_list->addItem(QString::fromStdString(choice));
    }
    m_list->setCurrentIndex(ListPositionOf(value, static_cast<std::size_t>(m_list->count())));
    ShowEditor(*m_list);
}

void PluginRow::ShowTick(float value)
{
    const QSignalBlocker quiet(m_tick);
    // A name's "&" is no mnemonic.
    m_tick->setText(PlainCaption(Name()));
    m_tick->setChecked(ListPositionOf(value, 2) == 1);
    m_tick->show();
}

void PluginRow::ShowColour(Colour colour)
{
    m_colour = colour;
    m_swatch->SetColour(colour);
}

float PluginRow::Value(ParameterKind kind) const
{
    switch (kind) {
    case ParameterKind::Slider:
        return static_cast<float>(m_slider->value());
    case ParameterKind::Number: {
        const std::string text = m_number->text().toStdString();
        const auto value = SingleFromText(text);
        if (!value) {
            throw Error(Status::ConversionFailed,
                        "\"" + text + "\", the text of \"" + m_parameter.name + "\", is no number");
        }
        return *value;
    }
    case ParameterKind::List:
    case ParameterKind::Shape:
    case ParameterKind::SimpleShape:
        return static_cast<float>(m_list->currentIndex());
    case ParameterKind::Tick:
        return m_tick->isChecked() ? 1.0F : 0.0F;
    case ParameterKind::PackedColour:
        return PackColour(m_colour);
    default:
        return 0.0F;
    }
}

std::string PluginRow::Text() const
{
    return m_parameter.kind == ParameterKind::Number ? m_number->text().toStdString()
                                                     : TextOfSingle(Value(m_parameter.kind));
}

void PluginRow::Place(int width, double scale)
{
    const auto pixels = [scale](int twips) { return qRound(scale * twips / kTwipsPerPixel); };
    const int top = pixels(ParameterRowTop(m_row));
    const int height = pixels(kParameterEditorTwips);
    const int captionTop = top + pixels(kParameterCaptionDropTwips);
    const int positionWidth = m_position->sizeHint().width();
    const int left = width * kCaptionShare / 100;
    const QRect editor(left, top, std::max(0, width - left), height);
    m_caption->setGeometry(0, captionTop, std::max(0, left - kEditorGap), height);
    m_slider->setGeometry(editor.adjusted(0, 0, -positionWidth - kEditorGap, 0));
    m_position->setGeometry(editor.right() + 1 - positionWidth, top, positionWidth, height);
    m_number->setGeometry(editor);
    m_list->setGeometry(editor);
    m_tick->setGeometry(left, top, std::max(0, width - left), height);
    m_swatch->setGeometry(left, top, m_swatch->sizeHint().width(), height);
}

}  // namespace CorvexMaterial
