#include "PluginPanel.h"

#include "PluginParameters.h"
#include "PluginRow.h"
#include "Swatch.h"
#include "Trap.h"
#include "Trial.h"
#include "WheelGuard.h"
#include <CorvexMaterial/NumberText.h>
#include <CorvexMaterial/PlainText.h>
#include <CorvexMaterial/Twips.h>
#include <CorvexMaterial/UpDownText.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

#include <algorithm>

namespace CorvexMaterial {

namespace {

constexpr int kListHeight = 24;  // as that of a button
constexpr int kGap = 4;
constexpr int kNoteLines = 3;
constexpr int kLeastWidth = 180;

}  // namespace

PluginPanel::PluginPanel(const Trap& trap, CorvexDB::PluginTable& plugins,
                         CorvexCommon::NumericValidation& numbers, Choosers& choosers, Trial& trial,
                         QWidget* parent)
    : QWidget(parent), m_trap(trap), m_plugins(plugins), m_numbers(numbers), m_trial(trial),
      m_colours(choosers, trial), m_list(new QComboBox(this)),
      m_note(new QLabel(
          tr("This plug-in is not installed. The material keeps its name and its values."), this))
{
    setProperty("helpTopic", QStringLiteral("plugins"));
    m_list->setObjectName(QStringLiteral("cboPlugin"));
    m_list->setAccessibleName(tr("Plug-in"));
    m_list->setFocusPolicy(Qt::StrongFocus);
    connect(m_list, &QComboBox::currentIndexChanged, this,
            [this](int position) { m_trap("cboPlugin", [&] { Choose(position); }); });
    m_note->setObjectName(QStringLiteral("lblPluginMissing"));
    m_note->setWordWrap(true);
    m_note->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    MakeRows();
    MakeButtons();
    GuardWheel(*this);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    Clear();
}

void PluginPanel::MakeRows()
{
    for (std::size_t i = 0; i < kPluginParameterLimit; ++i) {
        auto* row = new PluginRow(i, *this);
        connect(row, &PluginRow::Edited, this, &PluginPanel::Edited);
        connect(row, &PluginRow::NumberConfirmed, this,
                [this, row] { m_trap("txtParameter", [&] { ConfirmNumber(*row); }); });
        connect(row, &PluginRow::SwatchPressed, this,
                [this, row] { m_trap("picParameter", [&] { PickColour(*row); }); });
        m_rows.push_back(row);
    }
}

void PluginPanel::MakeButtons()
{
    const auto add = [this](const char* name, const QString& text, const QString& toolTip,
                            void (PluginPanel::*pressed)()) {
        auto* button = new QPushButton(text, this);
        button->setObjectName(QString::fromLatin1(name));
        button->setToolTip(toolTip);
        connect(button, &QPushButton::clicked, this, pressed);
        m_buttons.push_back(button);
    };
    add("cmdRemember", tr("Remember"), tr("Keep these values as my defaults of plug-ins"),
        &PluginPanel::RememberPressed);
    add("cmdResetUser", tr("My Defaults"), tr("Back to the remembered values"),
        &PluginPanel::ResetUserPressed);
    add("cmdReset", tr("Reset"), tr("Back to the plug-in's own values"),
        &PluginPanel::ResetPressed);
}

void PluginPanel::Clear()
{
    const QSignalBlocker quiet(m_list);
    m_list->clear();
    m_list->addItem(QString::fromLatin1(kNoPlugin));
    Show(0, {}, {});
}

void PluginPanel::Add(const std::string& name)
{
    m_list->addItem(QString::fromStdString(name));
}

std::vector<QWidget*> PluginPanel::Editors() const
{
    std::vector<QWidget*> editors;
    for (const PluginRow* row : m_rows) {
        const std::vector<QWidget*> more = row->Editors();
        editors.insert(editors.end(), more.begin(), more.end());
    }
    return editors;
}

std::string PluginPanel::ListText() const
{
    return m_missing ? m_missing->name : m_list->currentText().toStdString();
}

std::string PluginPanel::SelectedName() const
{
    return m_missing || m_shownPosition > 0 ? ListText() : std::string();
}

PluginEntry PluginPanel::EntryAt(int position) const
{
    return {position, m_list->itemText(position).toStdString()};
}

int PluginPanel::PositionOf(const std::string& name) const
{
    for (int position = 1; position < m_list->count(); ++position) {
        if (EntryAt(position).name == name && name != kNoPlugin) {
            return position;
        }
    }
    return 0;
}

std::vector<CorvexDB::PluginParameter> PluginPanel::Ask(int position)
{
    return AskParameters(m_plugins, EntryAt(position));
}

void PluginPanel::Choose(int position)
{
    try {
        const auto parameters = Ask(position);
        Show(position, parameters, DefaultValues(parameters));
    } catch (...) {
        const QSignalBlocker quiet(m_list);
        m_list->setCurrentIndex(m_missing ? -1 : m_shownPosition);
        throw;
    }
    Q_EMIT PluginChosen();
}

void PluginPanel::Show(int position, const std::vector<CorvexDB::PluginParameter>& parameters,
                       const std::vector<float>& values)
{
    Naming(EntryAt(position), [&] {
        const std::size_t shown = std::min(parameters.size(), kPluginParameterLimit);
        std::for_each_n(parameters.begin(), shown, CheckParameter);
        CheckValues(parameters, values);

        ShowEntry(position, std::nullopt);
        ShowRows({parameters.begin(), parameters.begin() + static_cast<std::ptrdiff_t>(shown)},
                 values);
    });
}

void PluginPanel::ShowEntry(int position, std::optional<Missing> missing)
{
    const QSignalBlocker quiet(m_list);
    m_missing = std::move(missing);
    m_shownPosition = position;
    const QString name = m_missing ? QString::fromStdString(m_missing->name) : QString();
    m_list->setPlaceholderText(name);
    m_list->setToolTip(PlainTip(name));
    m_list->setCurrentIndex(m_missing ? -1 : position);
    m_note->setVisible(m_missing.has_value());
}

void PluginPanel::ShowRows(const std::vector<CorvexDB::PluginParameter>& parameters,
                           const std::vector<float>& values)
{
    for (PluginRow* row : m_rows) {
        row->Hide();
    }
    m_shownRows = parameters.size();
    for (std::size_t i = 0; i < m_shownRows; ++i) {
        m_rows[i]->Show(parameters[i], values[i]);
    }
    for (QPushButton* button : m_buttons) {
        button->setVisible(m_shownRows > 0);
    }
    PlaceWidgets();
    updateGeometry();
}

void PluginPanel::ConfirmNumber(PluginRow& row)
{
    const CorvexDB::PluginParameter& parameter = row.Parameter();
    const std::string accepted = m_numbers.Accept(
        row.Number().text().toStdString(),
        {parameter.defaultValue, parameter.minimum, parameter.maximum, parameter.decimals});
    row.Number().ShowText(QString::fromStdString(accepted));
    Q_EMIT Edited();
}

void PluginPanel::PickColour(PluginRow& row)
{
    // Black cannot be told from a colour that was never chosen, so the dialog opens with its own.
    constexpr Colour kBlack = 0;
    const Colour shown = row.SwatchColour();
    m_colours.Open(shown == kBlack ? std::nullopt : std::optional(shown), row.ColourButton(),
                   {[this, &row, values = ShownValues()](Colour tried) mutable {
                        row.ColourButton().SetColour(tried);
                        values[row.Index()] = PackColour(tried);
                        m_trial.Show({{Attribute::Plugin, 0, ListText()},
                                      {Attribute::PluginParameters, 0, values}});
                    },
                    [this, &row](std::optional<Colour> picked) {
                        row.ShowColour(picked.value_or(row.SwatchColour()));
                        if (picked) {
                            Q_EMIT Edited();
                        }
                    }});
}

QSize PluginPanel::sizeHint() const
{
    if (m_missing) {
        return {kLeastWidth, ListHeight() + kGap + kNoteLines * fontMetrics().lineSpacing()};
    }
    if (m_shownRows == 0) {
        return {kLeastWidth, ListHeight()};
    }
    return {kLeastWidth, ButtonTop() + ListHeight()};
}

QSize PluginPanel::minimumSizeHint() const
{
    return sizeHint();
}

void PluginPanel::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    PlaceWidgets();
}

// The rows are as high as the font of the design needs them.
double PluginPanel::Scale() const
{
    constexpr double kAroundText = 4.0;
    constexpr double kEditorHeight = kParameterEditorTwips / kTwipsPerPixel;
    return std::max(1.0, (fontMetrics().height() + kAroundText) / kEditorHeight);
}

int PluginPanel::ListHeight() const
{
    return qRound(Scale() * kListHeight);
}

int PluginPanel::ButtonTop() const
{
    return qRound(Scale() * ParameterRowTop(m_shownRows) / kTwipsPerPixel) + kGap;
}

void PluginPanel::PlaceWidgets()
{
    m_list->setGeometry(0, 0, width(), ListHeight());
    m_note->setGeometry(0, ListHeight() + kGap, width(), kNoteLines * fontMetrics().lineSpacing());
    for (PluginRow* row : m_rows) {
        row->Place(width(), Scale());
    }
    const int count = static_cast<int>(m_buttons.size());
    const int step = (width() + kGap) / count;
    for (int i = 0; i < count; ++i) {
        m_buttons[static_cast<std::size_t>(i)]->setGeometry(i * step, ButtonTop(), step - kGap,
                                                            ListHeight());
    }
}

}  // namespace CorvexMaterial
