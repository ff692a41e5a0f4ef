#include "material/LibraryPanel.h"

#include "controls/SectionHeader.h"
#include "host/Status.h"
#include "material/PanelLayout.h"

#include <QBoxLayout>
#include <QToolButton>

#include <limits>

namespace CorvexMaterial {

namespace {

QToolButton* RowButton(const char* name, const QString& text, const QString& tip, QWidget* parent)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setText(text);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    return button;
}

}  // namespace

LibraryPanel::LibraryPanel(const LibraryPanelKind& kind, CorvexEditport::EditportFactory& editports,
                           QWidget* parent)
    : QWidget(parent), m_rowTwips(kind.rowTwips), m_header(new SectionHeader(kind.title, this)),
      m_content(new QWidget(this)),
      m_less(RowButton(kind.lessName, QStringLiteral("−"), tr("Show a row less"), m_content)),
      m_more(RowButton(kind.moreName, QStringLiteral("+"), tr("Show a row more"), m_content)),
      m_browser(editports.CreateEditport(m_content, kind.browser)),
      m_browserWidget(&m_browser->Widget())
{
    m_header->setObjectName(QString::fromLatin1(kind.headerName));
    m_browserWidget->setObjectName(QString::fromLatin1(kind.browserName));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_less);
    buttons->addWidget(m_more);
    auto* content = new QVBoxLayout(m_content);
    content->setContentsMargins(0, 4, 0, 6);
    content->setSpacing(4);
    content->addWidget(m_browserWidget);
    content->addLayout(buttons);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_header);
    column->addWidget(m_content);
    connect(m_header, &QCheckBox::toggled, this, &LibraryPanel::Arrange);
    connect(m_header, &QCheckBox::clicked, this, &LibraryPanel::ExpandedByUser);
    connect(m_less, &QToolButton::clicked, this, &LibraryPanel::LessPressed);
    connect(m_more, &QToolButton::clicked, this, &LibraryPanel::MorePressed);
    Arrange();
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

void LibraryPanel::SetLayoutEnabled(bool headerEnabled, bool rowsEnabled)
{
    m_header->setEnabled(headerEnabled);
    m_less->setEnabled(rowsEnabled);
    m_more->setEnabled(rowsEnabled);
}

void LibraryPanel::Arrange()
{
    m_content->setVisible(m_header->isChecked());
    m_browserWidget->setVisible(m_rows > 0);
    if (m_rows > 0) {
        // Qt's own limit for a widget, below which 16-bit rows could still end.
        constexpr qint64 kWidgetLimit = QWIDGETSIZE_MAX;
        const qint64 height = static_cast<qint64>(m_rows) * m_rowTwips / kTwipsPerPixel;
        m_browserWidget->setFixedHeight(static_cast<int>(std::min(height, kWidgetLimit)));
    }
}

}  // namespace CorvexMaterial
