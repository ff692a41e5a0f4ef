#pragma once

// The host's library browser, embedded in the two library panels.

#include <CorvexMaterial/Colour.h>

#include <cstdint>

class QWidget;

namespace CorvexEditport {

/// How far a browser can be scrolled, in pixels of its own.
struct ScrollRange {
    std::int32_t position = 0;
    std::int32_t maximum = 0;  ///< last position; 0 when everything can be seen
    std::int32_t page = 1;     ///< height of what can be seen
    std::int32_t step = 1;     ///< height of a row
};

[[nodiscard]] constexpr bool operator==(const ScrollRange& one, const ScrollRange& other)
{
    return one.position == other.position && one.maximum == other.maximum &&
           one.page == other.page && one.step == other.step;
}

enum class BrowserKind : std::int32_t { Materials, Textures };

/// Told by a browser, on the user-interface thread.
class EditportListener {
public:
    virtual ~EditportListener() = default;
    /// Index in file order.
    virtual void ItemSelected(std::int32_t index) = 0;
    virtual void ItemOpened(std::int32_t index) = 0;
    /// The position or what there is to scroll has changed; only from a browser that is scrolled
    /// from outside.
    virtual void Scrolled(const ScrollRange& /*range*/) {}
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
    /// From now on the browser shows no scroll bar of its own: it tells its listener what there is
    /// to scroll and is scrolled by `ScrollTo`. A browser that scrolls in its own way ignores both.
    virtual void ScrollFromOutside() {}
    /// A widget that belongs beside the browser, such as a search field; null for none. The caller
    /// puts it into its own layout; it is gone at the latest with the browser's parent.
    virtual QWidget* Companion() { return nullptr; }
    /// A position outside the range goes to its nearer end.
    virtual void ScrollTo(std::int32_t /*position*/) {}
};

class EditportFactory {
public:
    virtual ~EditportFactory() = default;
    /// Never null. The browser lives as long as its widget.
    virtual Editport* CreateEditport(QWidget* parent, BrowserKind kind) = 0;
};

}  // namespace CorvexEditport
