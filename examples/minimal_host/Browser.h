#pragma once

#include <CorvexMaterial/CorvexEditport.h>

#include <QListWidget>

/// A library browser: a plain list of numbers.
class Browser final : public QListWidget, public CorvexEditport::Editport {
public:
    explicit Browser(QWidget* parent);

    QWidget& Widget() override;
    void ShowItems(std::int32_t count) override;
    void Clear() override;
    std::int32_t SelectedIndex() override;
    void ReleaseSelection() override;
    void Redraw() override;
    void SetBackColor(CorvexMaterial::Colour colour) override;
    void SetListener(CorvexEditport::EditportListener* listener) override;

private:
    CorvexEditport::EditportListener* m_listener = nullptr;
};

class BrowserFactory final : public CorvexEditport::EditportFactory {
public:
    CorvexEditport::Editport* CreateEditport(QWidget* parent,
                                             CorvexEditport::BrowserKind kind) override;
};
