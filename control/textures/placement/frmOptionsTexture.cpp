#include "frmOptionsTexture.h"

#include "AmountField.h"
#include "CropGrip.h"
#include "FieldMessage.h"
#include "TextureImage.h"
#include "TextureMessages.h"
#include "ui_frmOptionsTexture.h"
#include <CorvexMaterial/KeyboardAccess.h>

namespace CorvexMaterial {

namespace {

constexpr std::array kTexts{&CropTexts::originLeft, &CropTexts::originTop, &CropTexts::scaleWidth,
                            &CropTexts::scaleHeight};

}  // namespace

frmOptionsTexture::frmOptionsTexture(QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmOptionsTexture>())
{
    m_ui->setupUi(this);
    GiveKeyboardAccess(*this);
    m_fields = {m_ui->txtOriginLeft, m_ui->txtOriginTop, m_ui->txtScaleWidth, m_ui->txtScaleHeight};
    m_ui->lblMessage->hide();
    m_ui->lblTooTall->hide();
    m_ui->lblTooTall->setText(QString::fromUtf8(kTextureTooTall));
    ConnectFields();
    ConnectPicture();
    ShowTexts(DefaultCrop());
    connect(m_ui->cmdResetDefaults, &QPushButton::clicked, this,
            [this] { ShowTexts(DefaultCrop()); });
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmOptionsTexture::accept);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    m_ui->imgTextureCropping->setFocus();
}

frmOptionsTexture::~frmOptionsTexture() = default;

void frmOptionsTexture::ConnectFields()
{
    constexpr std::array kAttributes{Attribute::OriginU, Attribute::OriginV, Attribute::ScaleU,
                                     Attribute::ScaleV};
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        NumberInput& input = m_fields[i]->Input();
        input.SetRules(RulesOf(kAttributes[i]));
        input.DragOnLabels();
        connect(m_fields[i], &QLineEdit::textChanged, this, &frmOptionsTexture::OnTextChanged);
        connect(&input, &NumberInput::Committed, m_ui->lblMessage, &QLabel::hide);
    }
}

void frmOptionsTexture::ConnectPicture()
{
    CroppingPicture* picture = m_ui->imgTextureCropping;
    connect(picture, &CroppingPicture::DragStarted, this,
            [this, picture](PicturePoint at) { ShowTexts(StartDrag(at, picture->Extent())); });
    connect(picture, &CroppingPicture::DragMoved, this, [this, picture](PicturePoint at) {
        ShowTexts(MoveDrag(Texts(), at, picture->Extent()));
    });
    connect(picture, &CroppingPicture::RectChanged, this,
            [this](const CropRect& rect) { ShowTexts(TextsOf(rect)); });
}

void frmOptionsTexture::SetupForm(const std::string& file)
{
    const auto area = static_cast<int>(kCropAreaPixels * devicePixelRatioF());
    const TextureImage picture = ReadTextureImage(QString::fromStdString(file), area);
    const CropFit fit = FitIntoCropArea(picture.size.width(), picture.size.height());
    m_ui->imgTextureCropping->SetImage(picture.image, fit);
    m_ui->lblTooTall->setVisible(!fit.proportionsKept);
    m_ui->lblTextureFile->SetFile(QString::fromStdString(file), tr("No texture"));
    m_ui->lblImageSize->setText(
        picture.image.isNull()
            ? tr("No preview")
            : tr("%1 x %2 pixels").arg(picture.size.width()).arg(picture.size.height()));
}

CropTexts frmOptionsTexture::Texts() const
{
    CropTexts texts;
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        texts.*kTexts[i] = m_fields[i]->text().toStdString();
    }
    return texts;
}

void frmOptionsTexture::ShowTexts(const CropTexts& texts)
{
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        const QString text = QString::fromStdString(texts.*kTexts[i]);
        if (m_fields[i]->text() != text) {
            m_fields[i]->Input().ShowQuietly(text);
        }
    }
    m_ui->lblMessage->hide();
    ShowRect();
}

void frmOptionsTexture::OnTextChanged()
{
    m_ui->lblMessage->hide();
    ShowTexts(Clamped(Texts()));
}

void frmOptionsTexture::ShowRect()
{
    // A text that is no number yet leaves the rectangle where it was.
    if (const auto placement = PlacementOf(Texts())) {
        m_ui->imgTextureCropping->SetRect(RectOf(*placement));
        if (placement->scaleU != 0.0F && placement->scaleV != 0.0F) {
            Q_EMIT Tried(*placement);
        }
    }
}

CorvexDB::TexturePlacement frmOptionsTexture::GetResults() const
{
    return m_results;
}

void frmOptionsTexture::accept()
{
    for (AmountField* field : m_fields) {
        if (!field->Input().IsNumber()) {
            ShowNotANumber(*m_ui->lblMessage, field->text());
            field->setFocus();
            field->selectAll();
            return;
        }
        field->Input().Commit();
    }
    m_results = PlacementOf(Texts()).value();
    m_okClicked = true;
    QDialog::accept();
}

}  // namespace CorvexMaterial
