#pragma once

#include <CorvexMaterial/Export.h>
#include <CorvexMaterial/Platform.h>

#include <memory>

class QWidget;

namespace CorvexMaterial {

/// The desktop through Qt: one implementation of each interface. Needs a QApplication.
class CORVEX_EXPORT QtPlatform {
public:
    explicit QtPlatform(QWidget* dialogParent = nullptr);
    ~QtPlatform();
    QtPlatform(const QtPlatform&) = delete;
    QtPlatform& operator=(const QtPlatform&) = delete;

    /// Lives as long as this object.
    [[nodiscard]] Platform& Get();
    /// The window that message boxes and choosers are modal to; may be null, may die earlier.
    void SetDialogParent(QWidget* dialogParent);

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

}  // namespace CorvexMaterial
