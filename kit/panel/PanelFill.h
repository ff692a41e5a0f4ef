#pragma once

#include <CorvexMaterial/Status.h>

#include <QObject>

class QScrollArea;

namespace CorvexMaterial {
class Material;
}

namespace studio {

/// Two layouts of the material panel: the user's own, and one that fills the dock exactly and
/// follows its height.
class PanelFill : public QObject {
    Q_OBJECT

public:
    /// Both outlive this object. The area shows the panel.
    PanelFill(CorvexMaterial::Material& material, QScrollArea& area);

    [[nodiscard]] bool Filled() const { return m_filled; }
    /// Keeps the user's layout in the settings first.
    void Fill();
    /// Brings the user's layout back.
    void Restore();

Q_SIGNALS:
    void Changed(bool filled);
    void Failed(const QString& what, CorvexMaterial::Status status);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Done(CorvexMaterial::Status status);
    void OfferHeight();

    CorvexMaterial::Material& m_material;
    QScrollArea& m_area;
    bool m_filled = false;
};

}  // namespace studio
