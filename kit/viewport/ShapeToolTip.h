#pragma once

#include <CorvexMaterial/MaterialRecord.h>

#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace studio {

class StudioShape;
class ViewportWidget;

/// A colour as a person calls it: its name in the colour list, or its hexadecimal form.
[[nodiscard]] QString ColourText(CorvexMaterial::Colour colour);

/// What the tool tip says of a shape: its name, its material, and every custom field that has a
/// value.
[[nodiscard]] QString ShapeToolTipText(const std::string& shapeName,
                                       const CorvexDB::udtMaterial& material,
                                       const std::vector<std::string>& fieldNames);

/// Tells about the shape under the pointer when it rests over the viewport.
class ShapeToolTip : public QObject {
    Q_OBJECT

public:
    using Pick = std::function<std::shared_ptr<StudioShape>(QPoint)>;
    using FieldNames = std::function<std::vector<std::string>()>;

    ShapeToolTip(ViewportWidget& viewport, Pick pick, FieldNames fieldNames);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    ViewportWidget& m_viewport;
    Pick m_pick;
    FieldNames m_fieldNames;
};

}  // namespace studio
