#include "CustomFieldsPanel.h"

#include "DifferenceMark.h"
#include "ElidedLabel.h"
#include <CorvexMaterial/PlainText.h>

#include <QGridLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>

#include <algorithm>
#include <limits>

namespace CorvexMaterial {

namespace {

// Shares of the width, whatever the names: a long one must not squeeze the values.
constexpr int kNameShare = 2;
constexpr int kValueShare = 3;

/// Drops a typed "|". No validator, because text that is pasted comes in as it is.
class FieldText : public QLineEdit {
public:
    explicit FieldText(QWidget* parent) : QLineEdit(parent)
    {
        // Left alone it cuts what a material brings along.
        setMaxLength(std::numeric_limits<int>::max());
    }

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

CustomFieldsPanel::CustomFieldsPanel(QWidget* parent)
    : QWidget(parent), m_grid(new QGridLayout(this))
{
    setProperty("helpTopic", QStringLiteral("custom-fields"));
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setHorizontalSpacing(8);
    m_grid->setVerticalSpacing(4);
    m_grid->setColumnStretch(0, kNameShare);
    m_grid->setColumnStretch(1, kValueShare);
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        m_names[i] = new ElidedLabel(Qt::ElideRight, this);
        m_names[i]->setObjectName(Numbered("lblCustomMaterialFieldName", i));
        m_values[i] = new FieldText(this);
        m_values[i]->setObjectName(Numbered("txtCustomMaterialFieldValue", i));
        connect(m_values[i], &QLineEdit::textChanged, this, [this, i] { Q_EMIT Edited(i); });
        connect(m_values[i], &QLineEdit::returnPressed, this, [this, i] {
            if (DifferenceMark::IsOn(*m_values[i])) {
                Q_EMIT Edited(i);
            }
        });
        m_grid->addWidget(m_names[i], static_cast<int>(i), 0);
        m_grid->addWidget(m_values[i], static_cast<int>(i), 1);
    }
    ShowNames({});
}

void CustomFieldsPanel::ShowNames(const std::vector<std::string>& names)
{
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        const bool isDefined = i < names.size() && !names[i].empty();
        const QString name = isDefined ? QString::fromStdString(names[i]) : tr("Custom");
        m_names[i]->setText(name);
        m_names[i]->setToolTip(isDefined ? PlainTip(name) : QString());
        m_values[i]->setAccessibleName(name);
        m_names[i]->setVisible(isDefined);
        m_values[i]->setVisible(isDefined);
    }
    const bool none = std::ranges::all_of(m_values, &QWidget::isHidden);
    m_grid->addWidget(m_names[0], 0, 0, 1, none ? 2 : 1);
    if (none) {
        m_names[0]->setText(tr("No custom material fields defined."));
        m_names[0]->show();
    }
}

std::vector<QWidget*> CustomFieldsPanel::Field(std::size_t field) const
{
    return field < m_values.size() ? std::vector<QWidget*>{m_values[field]}
                                   : std::vector<QWidget*>();
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
