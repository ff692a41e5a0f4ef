#include "LibraryPanel.h"

#include "ChannelIcons.h"
#include "SectionHeader.h"
#include "WheelGuard.h"
#include <CorvexMaterial/PlainText.h>
#include <CorvexMaterial/Status.h>

#include <QBoxLayout>
#include <QComboBox>
#include <QFocusEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QToolButton>

#include <limits>

namespace CorvexMaterial {

namespace {

QString NameOf(const char* prefix, const LibraryPanelKind& kind, const char* suffix = "")
{
    return QString::fromLatin1(prefix) + QLatin1String(kind.stem) + QLatin1String(suffix);
}

QToolButton* LibraryButton(const QString& name, const QString& tip, QWidget* parent)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    return button;
}

QToolButton* SignButton(const QString& name, ChannelSign sign, const QString& tip, QWidget* parent)
{
    QToolButton* button = LibraryButton(name, tip, parent);
    button->setIcon(ChannelIcon(sign));
    return button;
}

}  // namespace

LibraryPanel::LibraryPanel(const LibraryPanelKind& kind, CorvexEditport::EditportFactory& editports,
                           QWidget* parent)
    : QWidget(parent), m_rowPixels(kind.rowPixels), m_header(new SectionHeader(kind.title, this)),
      m_content(new QWidget(this))
{
    setProperty("helpTopic", QStringLiteral("libraries"));
    m_header->setObjectName(NameOf("chk", kind));
    auto* content = new QVBoxLayout(m_content);
    content->setContentsMargins(0, 4, 0, 6);
    content->setSpacing(4);
    BuildLibraryRow(kind, *content);
    GuardWheel(*m_content);  // the list alone: the browser and its scroll bar are for the wheel
    BuildBrowserRow(kind, editports, *content);
    BuildRowButtons(kind, *content);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_header);
    column->addWidget(m_content);
    Connect();
    SetChangesEnabled(false);
    Arrange();
}

LibraryPanel::~LibraryPanel()
{
    try {
        if (m_browserWidget != nullptr) {
            m_browser->SetListener(nullptr);
        }
    } catch (...) {
        // The browser's widget goes right after this one, and with it whoever could call back.
        return;
    }
}

void LibraryPanel::BuildLibraryRow(const LibraryPanelKind& kind, QBoxLayout& column)
{
    m_libraries = new QComboBox(m_content);
    m_libraries->setObjectName(NameOf("cbo", kind));
    m_libraries->setAccessibleName(kind.title);
    // As wide as there is room, whatever the names: the panel must not grow with them.
    m_libraries->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_libraries->setMinimumContentsLength(6);
    m_add = SignButton(NameOf("cmd", kind, "Add"), ChannelSign::LibraryAdd, kind.addTip, m_content);
    m_delete = SignButton(NameOf("cmd", kind, "Delete"), ChannelSign::LibraryDelete, kind.deleteTip,
                          m_content);
    m_functions = SignButton(NameOf("cmd", kind, "Functions"), ChannelSign::LibraryFile,
                             kind.functionsTip, m_content);
    auto* row = new QHBoxLayout;
    row->addWidget(m_libraries, 1);
    row->addWidget(m_add);
    row->addWidget(m_delete);
    row->addWidget(m_functions);
    column.addLayout(row);
}

void LibraryPanel::BuildBrowserRow(const LibraryPanelKind& kind,
                                   CorvexEditport::EditportFactory& editports, QBoxLayout& column)
{
    m_browser = editports.CreateEditport(m_content, kind.browser);
    m_browserWidget = &m_browser->Widget();
    m_browserWidget->setObjectName(NameOf("dfe", kind));
    m_scrollBar = new QScrollBar(Qt::Vertical, m_content);
    m_scrollBar->setObjectName(NameOf("vsb", kind));
    m_scrollBar->setRange(0, 0);
    m_scrollBar->setEnabled(false);
    auto* row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(m_browserWidget, 1);
    row->addWidget(m_scrollBar);
    column.addLayout(row);
    m_browser->SetListener(this);
    m_browser->ScrollFromOutside();
}

void LibraryPanel::BuildRowButtons(const LibraryPanelKind& kind, QBoxLayout& column)
{
    m_less = LibraryButton(NameOf("cmd", kind, "Less"), tr("Show a row less"), m_content);
    m_less->setText(QStringLiteral("−"));
    m_more = LibraryButton(NameOf("cmd", kind, "More"), tr("Show a row more"), m_content);
    m_more->setText(QStringLiteral("+"));
    QWidget* const companion = m_browser->Companion();
    auto* row = new QHBoxLayout;
    if (companion != nullptr) {
        row->addWidget(companion, 1);
    } else {
        row->addStretch(1);
    }
    row->addWidget(m_less);
    row->addWidget(m_more);
    // Above the browser, so that they stay under the pointer while rows come and go.
    column.insertLayout(column.count() - 1, row);
    QWidget::setTabOrder(m_functions, companion != nullptr ? companion : m_less);
    if (companion != nullptr) {
        QWidget::setTabOrder(companion, m_less);
    }
    QWidget::setTabOrder(m_less, m_more);
    QWidget::setTabOrder(m_more, m_browserWidget);
}

void LibraryPanel::Connect()
{
    connect(m_header, &QCheckBox::toggled, this, &LibraryPanel::Arrange);
    connect(m_header, &QCheckBox::clicked, this, &LibraryPanel::ExpandedByUser);
    connect(m_less, &QToolButton::clicked, this, &LibraryPanel::LessPressed);
    connect(m_more, &QToolButton::clicked, this, &LibraryPanel::MorePressed);
    connect(m_add, &QToolButton::clicked, this, &LibraryPanel::AddPressed);
    connect(m_delete, &QToolButton::clicked, this, &LibraryPanel::DeletePressed);
    connect(m_functions, &QToolButton::clicked, this, &LibraryPanel::FunctionsPressed);
    m_libraries->installEventFilter(this);
    connect(m_libraries, &QComboBox::textActivated, this, &LibraryPanel::LibraryChosen);
    connect(m_scrollBar, &QScrollBar::valueChanged, this, &LibraryPanel::ScrollBarMoved);
}

bool LibraryPanel::IsExpanded() const
{
    return m_header->isChecked();
}

void LibraryPanel::SetExpanded(bool expanded)
{
    m_header->setChecked(expanded);
}

void LibraryPanel::SetRows(int rows)
{
    m_rows = rows;
    Arrange();
}

void LibraryPanel::AddRows(int difference)
{
    using Limits = std::numeric_limits<std::int16_t>;
    const int rows = m_rows + difference;
    if (rows < Limits::min() || rows > Limits::max()) {
        throw Error(Status::Overflow, "no library browser has " + std::to_string(rows) + " rows");
    }
    SetRows(rows);
}

// The keyboard reaches the list with the focus, the mouse with a press. The focus that comes back
// from the open list is on its way to choose one of its entries.
bool LibraryPanel::eventFilter(QObject* watched, QEvent* event)
{
    const bool focused = event->type() == QEvent::FocusIn &&
                         static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason;
    if (focused || event->type() == QEvent::MouseButtonPress) {
        Q_EMIT ListWanted();
    }
    return QWidget::eventFilter(watched, event);
}

void LibraryPanel::ListLibraries(const std::vector<std::string>& names)
{
    m_libraries->clear();
    for (const std::string& name : names) {
        m_libraries->addItem(QString::fromStdString(name));
    }
}

void LibraryPanel::ShowLibrary(const std::string& name)
{
    const QString text = QString::fromStdString(name);
    const auto exactly = Qt::MatchExactly | Qt::MatchCaseSensitive;
    // A list whose placeholder becomes empty takes its first entry.
    m_libraries->setPlaceholderText(text.isEmpty() ? QStringLiteral(" ") : text);
    m_libraries->setCurrentIndex(text.isEmpty() ? -1 : m_libraries->findText(text, exactly));
    m_libraries->setToolTip(PlainTip(text));
}

void LibraryPanel::SetChangesEnabled(bool enabled)
{
    m_add->setEnabled(enabled);
    m_delete->setEnabled(enabled);
}

void LibraryPanel::SetDeleteEnabled(bool enabled)
{
    m_delete->setEnabled(enabled);
}

void LibraryPanel::PressDelete()
{
    m_delete->click();
}

void LibraryPanel::PressFunctions()
{
    m_functions->click();
}

void LibraryPanel::SetLayoutEnabled(bool headerEnabled, bool rowsEnabled)
{
    m_header->setEnabled(headerEnabled);
    m_less->setEnabled(rowsEnabled);
    m_more->setEnabled(rowsEnabled);
}

void LibraryPanel::Scrolled(const CorvexEditport::ScrollRange& range)
{
    // The browser is there already; only a pull at the bar may move it.
    const QSignalBlocker blocked(m_scrollBar);
    m_scrollBar->setEnabled(range.maximum > 0);
    m_scrollBar->setRange(0, range.maximum);
    m_scrollBar->setPageStep(range.page);
    m_scrollBar->setSingleStep(range.step);
    m_scrollBar->setValue(range.position);
}

void LibraryPanel::Arrange()
{
    m_content->setVisible(m_header->isChecked());
    m_browserWidget->setVisible(m_rows > 0);
    m_scrollBar->setVisible(m_rows > 0);
    if (m_rows > 0) {
        // Qt's own limit for a widget, below which 16-bit rows could still end.
        constexpr qint64 kWidgetLimit = QWIDGETSIZE_MAX;
        const qint64 height = static_cast<qint64>(m_rows) * m_rowPixels;
        m_browserWidget->setFixedHeight(static_cast<int>(std::min(height, kWidgetLimit)));
    }
}

}  // namespace CorvexMaterial
