#include "ColourPicker.h"

#include "ColourHistory.h"
#include "Eyedropper.h"
#include "ui_ColourPicker.h"

#include <QMouseEvent>
#include <QSignalBlocker>

#include <cmath>

namespace CorvexMaterial {

namespace {

constexpr std::array kHsvMost{359, 100, 100};
constexpr int kFullCircle = 360;
constexpr int kPercent = 100;
constexpr int kRecentInARow = 8;

int Rounded(double value)
{
    return static_cast<int>(std::lround(value));
}

/// "#rgb" and "#rrggbb", with or without the sign; nothing for anything else.
std::optional<QColor> ColourOfText(QString text)
{
    text = text.trimmed();
    if (!text.startsWith(u'#')) {
        text.prepend(u'#');
    }
    const QColor colour = text.size() == 4 || text.size() == 7 ? QColor(text) : QColor();
    return colour.isValid() ? std::optional(colour) : std::nullopt;
}

}  // namespace

ColourPicker::ColourPicker(ColourHistory& history, QWidget* parent)
    : QDialog(parent), m_history(history), m_ui(std::make_unique<Ui::ColourPicker>()),
      m_eyedropper(new Eyedropper(*this))
{
    m_ui->setupUi(this);
    m_hsv = {m_ui->hue, m_ui->saturation, m_ui->brightness};
    m_rgb = {m_ui->red, m_ui->green, m_ui->blue};
    ConnectFields();
    ConnectNumbers();
    ConnectEyedropper();
    AddRecent();
    Begin(kWhite);
    m_ui->field->setFocus();
}

ColourPicker::~ColourPicker() = default;

void ColourPicker::Begin(Colour colour)
{
    m_ui->before->SetColour(colour);
    m_colour = {};
    Show(m_colour.With(ShownOf(colour)), nullptr);
    m_touched = false;
}

Colour ColourPicker::Shown() const
{
    return m_ui->after->Value();
}

void ColourPicker::ConnectFields()
{
    connect(m_ui->field, &HsvField::Moved, this,
            [this](const HsvColour& colour) { Try(colour, m_ui->field); });
    connect(m_ui->strip, &HsvField::Moved, this, [this](const HsvColour& colour) {
        Try({colour.hue, m_colour.saturation, m_colour.value}, m_ui->strip);
    });
    connect(m_ui->before, &Swatch::clicked, this,
            [this] { Try(m_colour.With(ShownOf(m_ui->before->Value())), nullptr); });
    m_ui->after->setFocusPolicy(Qt::NoFocus);
    m_ui->after->setCursor(Qt::ArrowCursor);
    connect(m_ui->hex, &QLineEdit::textEdited, this, &ColourPicker::TakeHex);
    connect(m_ui->hex, &QLineEdit::editingFinished, this, [this] { Show(m_colour, nullptr); });
    connect(m_ui->ok, &QPushButton::clicked, this, &ColourPicker::accept);
    connect(m_ui->cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void ColourPicker::ConnectNumbers()
{
    for (std::size_t i = 0; i < m_hsv.size(); ++i) {
        m_hsv[i]->setRange(0, kHsvMost[i]);
        m_rgb[i]->setRange(0, 255);
        connect(m_hsv[i], &QSpinBox::valueChanged, this, [this, i](int value) {
            HsvColour colour = m_colour;
            const std::array parts{&colour.hue, &colour.saturation, &colour.value};
            *parts[i] = static_cast<double>(value) / (i == 0 ? kFullCircle : kPercent);
            Try(colour, m_hsv[i]);
        });
        connect(m_rgb[i], &QSpinBox::valueChanged, this, [this, i] {
            const QColor colour(m_rgb[0]->value(), m_rgb[1]->value(), m_rgb[2]->value());
            Try(m_colour.With(colour), m_rgb[i]);
        });
    }
    m_ui->hue->setWrapping(true);
}

void ColourPicker::ConnectEyedropper()
{
    connect(m_ui->eyedropper, &QToolButton::clicked, m_eyedropper, &Eyedropper::Start);
    connect(m_eyedropper, &Eyedropper::Pointed, this,
            [this](const QColor& colour) { m_ui->after->SetColour(ColourOf(colour)); });
    connect(m_eyedropper, &Eyedropper::Picked, this,
            [this](const QColor& colour) { Try(m_colour.With(colour), nullptr); });
    connect(m_eyedropper, &Eyedropper::Left, this, [this] { Show(m_colour, nullptr); });
}

void ColourPicker::AddRecent()
{
    int place = 0;
    for (const Colour colour : m_history.Colours()) {
        auto* swatch = new Swatch(this);
        swatch->SetColour(colour);
        swatch->setObjectName(QStringLiteral("recent_%1").arg(place));
        const QString name = ShownOf(colour).name();
        swatch->setAccessibleName(tr("Color used before, %1").arg(name));
        swatch->setToolTip(name);
        connect(swatch, &Swatch::clicked, this,
                [this, colour] { Try(m_colour.With(ShownOf(colour)), nullptr); });
        m_ui->recent->addWidget(swatch, place / kRecentInARow, place % kRecentInARow);
        ++place;
    }
    m_ui->lblRecent->setVisible(place > 0);
    m_ui->recent->setColumnStretch(kRecentInARow, 1);
}

void ColourPicker::TakeHex(const QString& text)
{
    if (const auto colour = ColourOfText(text)) {
        Try(m_colour.With(*colour), m_ui->hex);
    }
}

void ColourPicker::Show(const HsvColour& colour, const QWidget* source)
{
    m_colour = colour;
    const QColor shown = colour.Shown();
    m_ui->field->Show(colour);
    m_ui->strip->Show(colour);
    m_ui->after->SetColour(ColourOf(shown));
    const std::array hsv{colour.hue * kFullCircle, colour.saturation * kPercent,
                         colour.value * kPercent};
    const std::array rgb{shown.red(), shown.green(), shown.blue()};
    for (std::size_t i = 0; i < m_hsv.size(); ++i) {
        const QSignalBlocker quietHsv(m_hsv[i]);
        const QSignalBlocker quietRgb(m_rgb[i]);
        if (m_hsv[i] != source) {
            m_hsv[i]->setValue(Rounded(hsv[i]) % (kHsvMost[i] + 1));
        }
        if (m_rgb[i] != source) {
            m_rgb[i]->setValue(rgb[i]);
        }
    }
    if (m_ui->hex != source) {
        m_ui->hex->setText(shown.name());
    }
}

void ColourPicker::Try(const HsvColour& colour, const QWidget* source)
{
    Show(colour, source);
    m_touched = true;
    Q_EMIT Tried(Shown());
}

void ColourPicker::accept()
{
    m_history.Add(Shown());
    QDialog::accept();
}

// Where nothing else is, the window is taken hold of.
void ColourPicker::mousePressEvent(QMouseEvent* event)
{
    m_dragFrom = event->globalPosition().toPoint() - pos();
}

void ColourPicker::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons().testFlag(Qt::LeftButton)) {
        move(event->globalPosition().toPoint() - m_dragFrom);
    }
}

}  // namespace CorvexMaterial
