#pragma once

#include <CorvexMaterial/Status.h>

#include <QObject>

class QScrollArea;

namespace CorvexMaterial {
class Material;
}

namespace studio {

class MaterialLink;

/// Two layouts of the material panel: the user's own, and one that fills the dock exactly and
/// follows its height.
class PanelFill : public QObject {
    Q_OBJECT

public:
    /// All three outlive this object. The area shows the panel.
    PanelFill(CorvexMaterial::Material& material, MaterialLink& link, QScrollArea& area);

    [[nodiscard]] bool Filled() const { return m_filled; }
    /// Keeps the user's layout in the settings first.
    void Fill();
    /// Brings the user's layout back; the material stays as it is shown.
    void Restore();

Q_SIGNALS:
    /// The control is about to read its saved state, the libraries included.
    void AboutToReload();
    void Changed(bool filled);
    void Failed(const QString& what, CorvexMaterial::Status status);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Done(CorvexMaterial::Status status);
    void OfferHeight();
    void ReloadLayout();

    CorvexMaterial::Material& m_material;
    MaterialLink& m_link;
    QScrollArea& m_area;
    bool m_filled = false;
};

}  // namespace studio
