#include "textures/TilesField.h"

#include "textures/TextureWrap.h"

#include <QLineEdit>

namespace CorvexMaterial {

TilesField::TilesField(QWidget* parent) : QAbstractSpinBox(parent)
{
    setAlignment(Qt::AlignRight);
    lineEdit()->setText(kDefaultTilesText);
    connect(lineEdit(), &QLineEdit::textChanged, this, &TilesField::TextChanged);
}

void TilesField::SetText(const QString& text)
{
    lineEdit()->setText(text);
}

void TilesField::stepBy(int steps)
{
    SetText(QString::fromStdString(SteppedTiles(text().toStdString(), steps)));
    selectAll();
}

QAbstractSpinBox::StepEnabled TilesField::stepEnabled() const
{
    return StepUpEnabled | StepDownEnabled;
}

QSize TilesField::sizeHint() const
{
    return {96, QAbstractSpinBox::minimumSizeHint().height()};
}

}  // namespace CorvexMaterial
