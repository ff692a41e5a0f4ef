#include "plugins/CustomFieldsPanel.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>

#include <algorithm>

namespace CorvexMaterial {

namespace {

/// Drops a typed "|". No validator, because text that is pasted comes in as it is.
class FieldText : public QLineEdit {
public:
    using QLineEdit::QLineEdit;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->text() == QLatin1String("|")) {
            event->accept();
            return;
        }
        QLineEdit::keyPressEvent(event);
    }
};

QString Numbered(const char* array, std::size_t row)
{
    return QString::fromLatin1(array) + QLatin1Char('_') + QString::number(row);
}

}  // namespace

CustomFieldsPanel::CustomFieldsPanel(QWidget* parent) : QWidget(parent)
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(4);
    grid->setColumnStretch(1, 1);
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        m_names[i] = new QLabel(tr("Custom"), this);
        m_names[i]->setObjectName(Numbered("lblCustomMaterialFieldName", i));
        m_names[i]->setTextFormat(Qt::PlainText);
        m_values[i] = new FieldText(this);
        m_values[i]->setObjectName(Numbered("txtCustomMaterialFieldValue", i));
        m_names[i]->setBuddy(m_values[i]);
        connect(m_values[i], &QLineEdit::textChanged, this, &CustomFieldsPanel::Edited);
        grid->addWidget(m_names[i], static_cast<int>(i), 0);
        grid->addWidget(m_values[i], static_cast<int>(i), 1);
    }
    ShowNames({});
}

void CustomFieldsPanel::ShowNames(const std::vector<std::string>& names)
{
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        const bool isDefined = i < names.size() && !names[i].empty();
        const QString name = isDefined ? QString::fromStdString(names[i]) : tr("Custom");
        // Beside a field that it belongs to, a label takes "&" for a mnemonic.
        m_names[i]->setText(QString(name).replace(QLatin1Char('&'), QLatin1String("&&")));
        m_values[i]->setAccessibleName(name);
        m_names[i]->setVisible(isDefined);
        m_values[i]->setVisible(isDefined);
    }
    if (std::none_of(m_values.begin(), m_values.end(),
                     [](const QLineEdit* value) { return !value->isHidden(); })) {
        m_names[0]->setText(tr("No custom material fields defined."));
        m_names[0]->show();
    }
}

CustomFieldsPanel::Values CustomFieldsPanel::Texts() const
{
    Values texts;
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        texts[i] = m_values[i]->text().toStdString();
    }
    return texts;
}

void CustomFieldsPanel::ShowTexts(const Values& texts)
{
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        const QSignalBlocker quiet(m_values[i]);
        m_values[i]->setText(QString::fromStdString(texts[i]));
    }
}

}  // namespace CorvexMaterial
