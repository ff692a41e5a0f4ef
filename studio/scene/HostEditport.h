#pragma once

#include "host/CorvexEditport.h"

#include <QColor>
#include <QWidget>

namespace studio {

/// The library browser. As long as no library is open it says so.
class HostEditport : public QWidget, public CorvexEditport::Editport {
    Q_OBJECT

public:
    HostEditport(CorvexEditport::BrowserKind kind, QWidget* parent);

    QWidget& Widget() override { return *this; }
    void ShowItems(std::int32_t count) override;
    void Clear() override;
    std::int32_t SelectedIndex() override { return -1; }
    void ReleaseSelection() override {}
    void Redraw() override { update(); }
    void SetBackColor(CorvexMaterial::Colour colour) override;
    void SetListener(CorvexEditport::EditportListener*) override {}

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QString Text() const;

    CorvexEditport::BrowserKind m_kind;
    std::int32_t m_count = -1;  ///< -1: no library is open
    QColor m_background;
};

class HostEditportFactory : public CorvexEditport::EditportFactory {
public:
    CorvexEditport::Editport* CreateEditport(QWidget* parent,
                                             CorvexEditport::BrowserKind kind) override;
};

}  // namespace studio
