#include "frmOptionsFlatWrap.h"

#include "FieldMessage.h"
#include "TexturePlacement.h"
#include "TextureWrap.h"
#include "ui_frmOptionsFlatWrap.h"
#include <CorvexMaterial/KeyboardAccess.h>
#include <CorvexMaterial/NumberText.h>
#include <CorvexMaterial/Schema.h>

#include <QLineEdit>

namespace CorvexMaterial {

frmOptionsFlatWrap::frmOptionsFlatWrap(QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmOptionsFlatWrap>())
{
    m_ui->setupUi(this);
    GiveKeyboardAccess(*this);
    m_options = {m_ui->optFlatWrapType_0, m_ui->optFlatWrapType_1, m_ui->optFlatWrapType_2};
    for (std::size_t i = 0; i < m_options.size(); ++i) {
        m_options[i]->setText(tr(kFlatWrapTitles[i]));
    }
    m_ui->lblMessage->hide();
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmOptionsFlatWrap::accept);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->cmdDefault, &QPushButton::clicked, this, &frmOptionsFlatWrap::ShowDefaults);
    const AttributeRow& tiles = RowOf(Attribute::TilesPerUnit);
    m_ui->txtTilesPerUnit->SetNumbers({tiles.range.least, tiles.range.most, kTilesStep,
                                       SingleFromText(tiles.factoryText).value_or(1.0F)});
    m_ui->txtTilesPerUnit->ShowText(kDefaultTilesText);
    m_ui->txtTilesPerUnit->DragOn(*m_ui->lblTilesPerUnit);
    connect(m_ui->txtTilesPerUnit, &UpDownText::Confirmed, m_ui->lblMessage, &QLabel::hide);
    connect(m_ui->txtTilesPerUnit->findChild<QLineEdit*>(), &QLineEdit::textChanged, this,
            &frmOptionsFlatWrap::Tried);
    for (const QRadioButton* option : m_options) {
        connect(option, &QRadioButton::toggled, this, [this](bool isOn) {
            if (isOn) {
                Q_EMIT Tried();
            }
        });
    }
}

frmOptionsFlatWrap::~frmOptionsFlatWrap() = default;

void frmOptionsFlatWrap::ShowOptions(CorvexDB::FlatWrapType flatWrap, float tilesPerUnit)
{
    ShowOption(flatWrap);
    m_firstTiles = tilesPerUnit;
    m_firstText = QString::fromStdString(TextOfTiles(tilesPerUnit));
    m_ui->txtTilesPerUnit->ShowText(m_firstText);
}

void frmOptionsFlatWrap::ShowOption(CorvexDB::FlatWrapType flatWrap)
{
    m_options.at(static_cast<std::size_t>(flatWrap))->setChecked(true);
}

void frmOptionsFlatWrap::ShowDefaults()
{
    ShowOption(CorvexDB::FlatWrapType::TileByUnit);
    m_ui->txtTilesPerUnit->ShowText(kDefaultTilesText);
    m_ui->lblMessage->hide();
    Q_EMIT Tried();
}

CorvexDB::FlatWrapType frmOptionsFlatWrap::FlatWrap() const
{
    return FlatWrapOfOptions(m_options[0]->isChecked(), m_options[1]->isChecked());
}

float frmOptionsFlatWrap::TilesPerUnit() const
{
    const auto tiles = static_cast<float>(m_ui->txtTilesPerUnit->Value());
    return tiles == SingleFromText(m_firstText.toStdString())
               ? m_firstTiles
               : TilesFromText(TextOfSingle(tiles)).value_or(m_firstTiles);
}

void frmOptionsFlatWrap::accept()
{
    if (!m_ui->txtTilesPerUnit->IsNumber()) {
        ShowNotANumber(*m_ui->lblMessage, m_ui->txtTilesPerUnit->text());
        m_ui->txtTilesPerUnit->setFocus();
        m_ui->txtTilesPerUnit->selectAll();
        return;
    }
    m_ui->txtTilesPerUnit->Commit();
    m_okClicked = true;
    QDialog::accept();
}

}  // namespace CorvexMaterial
