#pragma once

#include <CorvexMaterial/MaterialRecord.h>

#include <QDialog>

#include <array>
#include <memory>

namespace Ui {
class frmOptionsFlatWrap;
}

class QRadioButton;

namespace CorvexMaterial {

/// How a flat wrap tiles.
class frmOptionsFlatWrap : public QDialog {
    Q_OBJECT

public:
    explicit frmOptionsFlatWrap(QWidget* parent);
    ~frmOptionsFlatWrap() override;

    void ShowOptions(CorvexDB::FlatWrapType flatWrap, float tilesPerUnit);

    [[nodiscard]] bool OKClicked() const { return m_okClicked; }
    [[nodiscard]] CorvexDB::FlatWrapType FlatWrap() const;
    /// Exactly the value shown at first when its text was not touched, although the text is
    /// rounded.
    [[nodiscard]] float TilesPerUnit() const;

    /// Stays open over a text that is no number.
    void accept() override;

Q_SIGNALS:
    /// The user looks at these; a text that is no number leaves the tiles as they were.
    void Tried();

private:
    void ShowDefaults();
    void ShowOption(CorvexDB::FlatWrapType flatWrap);

    std::unique_ptr<Ui::frmOptionsFlatWrap> m_ui;
    std::array<QRadioButton*, 3> m_options{};
    QString m_firstText;
    float m_firstTiles = 1.0F;
    bool m_okClicked = false;
};

}  // namespace CorvexMaterial
