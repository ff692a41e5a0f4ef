#include "SearchField.h"

#include "SearchCompleter.h"
#include <CorvexMaterial/LegibleColours.h>
#include <CorvexMaterial/PlainText.h>

#include <QKeyEvent>

namespace studio {
namespace {

QString Help()
{
    return SearchField::tr("Part of a name, or a property: transparency>30, has:bump, "
                           "color~gold, plugin:brick, tag:wood, fav:yes, rating>3, author:, "
                           "recent:. A minus in front means not.");
}

}  // namespace

SearchField::SearchField(QWidget* parent)
    : QLineEdit(parent), m_completer(new SearchCompleter(this))
{
    setCompleter(m_completer);
    setPlaceholderText(tr("Search"));
    setAccessibleName(tr("Search in the library"));
    setClearButtonEnabled(true);
    setMinimumWidth(60);
    ShowError({});
    connect(this, &QLineEdit::textChanged, this, &SearchField::Read);
}

void SearchField::Append(const QString& text)
{
    setFocus(Qt::ShortcutFocusReason);
    setText(this->text() + text);
}

void SearchField::focusInEvent(QFocusEvent* event)
{
    if (event->reason() != Qt::PopupFocusReason) {
        QStringList words;
        for (const std::string& beginning : QueryBeginnings()) {
            words << QString::fromStdString(beginning);
        }
        m_completer->SetWords(m_words ? words + m_words() : words);
    }
    QLineEdit::focusInEvent(event);
}

void SearchField::Read()
{
    const QString typed = text().trimmed();
    if (!accessibleDescription().isEmpty()) {
        Q_EMIT Refused({});
    }
    ShowError({});
    if (typed.isEmpty()) {
        if (m_hasQuery) {
            m_hasQuery = false;
            Q_EMIT QueryChanged(std::nullopt);
        }
        return;
    }
    const QueryReading reading = ReadLibraryQuery(typed.toStdString());
    if (const auto* error = std::get_if<std::string>(&reading)) {
        ShowError(QString::fromStdString(*error));
        Q_EMIT Refused(QString::fromStdString(*error));
        return;
    }
    m_hasQuery = true;
    Q_EMIT QueryChanged(std::get<LibraryQuery>(reading));
}

void SearchField::ShowError(const QString& error)
{
    setToolTip(error.isEmpty() ? Help() : CorvexMaterial::PlainTip(error));
    setAccessibleDescription(error);
    QPalette colours;
    if (!error.isEmpty()) {
        colours.setColor(QPalette::Text, CorvexMaterial::ErrorOn(palette().color(QPalette::Base)));
    }
    setPalette(colours);
}

void SearchField::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && !text().isEmpty()) {
        clear();
    } else if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Down ||
               event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Q_EMIT Left();
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

}  // namespace studio
