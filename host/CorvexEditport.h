#pragma once

// The host's library browser, embedded in the two library panels.

#include "host/Colour.h"

#include <cstdint>

class QWidget;

namespace CorvexEditport {

enum class BrowserKind : std::int32_t { Materials, Textures };

/// Told by a browser, on the user-interface thread.
class EditportListener {
public:
    virtual ~EditportListener() = default;
    /// Index in file order.
    virtual void ItemSelected(std::int32_t index) = 0;
    virtual void ItemOpened(std::int32_t index) = 0;
};

class Editport {
public:
    virtual ~Editport() = default;
    /// A child of the parent given at creation and owned by it.
    virtual QWidget& Widget() = 0;
    /// Shows this many items of the open library; names and thumbnails are the browser's business.
    virtual void ShowItems(std::int32_t count) = 0;
    virtual void Clear() = 0;
    /// -1 when nothing is selected.
    virtual std::int32_t SelectedIndex() = 0;
    virtual void ReleaseSelection() = 0;
    virtual void Redraw() = 0;
    virtual void SetBackColor(CorvexMaterial::Colour colour) = 0;
    virtual void SetListener(EditportListener* listener) = 0;
};

class EditportFactory {
public:
    virtual ~EditportFactory() = default;
    /// Never null. The browser lives as long as its widget.
    virtual Editport* CreateEditport(QWidget* parent, BrowserKind kind) = 0;
};

}  // namespace CorvexEditport
