#include "Browser.h"

Browser::Browser(QWidget* parent) : QListWidget(parent)
{
    connect(this, &QListWidget::itemClicked, this, [this] {
        if (m_listener != nullptr) {
            m_listener->ItemSelected(currentRow());
        }
    });
    connect(this, &QListWidget::itemActivated, this, [this] {
        if (m_listener != nullptr) {
            m_listener->ItemOpened(currentRow());
        }
    });
}

QWidget& Browser::Widget()
{
    return *this;
}

void Browser::ShowItems(std::int32_t count)
{
    clear();
    for (std::int32_t index = 0; index < count; ++index) {
        addItem(QString::number(index + 1));
    }
}

void Browser::Clear()
{
    clear();
}

std::int32_t Browser::SelectedIndex()
{
    return selectedItems().isEmpty() ? -1 : currentRow();
}

void Browser::ReleaseSelection()
{
    clearSelection();
}

void Browser::Redraw()
{
    viewport()->update();
}

void Browser::SetBackColor(CorvexMaterial::Colour colour)
{
    const CorvexMaterial::ColourBytes bytes = CorvexMaterial::BytesOf(colour);
    QPalette colours = palette();
    colours.setColor(QPalette::Base, QColor(bytes.red, bytes.green, bytes.blue));
    setPalette(colours);
}

void Browser::SetListener(CorvexEditport::EditportListener* listener)
{
    m_listener = listener;
}

CorvexEditport::Editport* BrowserFactory::CreateEditport(QWidget* parent,
                                                         CorvexEditport::BrowserKind)
{
    return new Browser(parent);
}
