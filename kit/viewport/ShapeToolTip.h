#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace studio {

class StudioShape;
class ViewportWidget;

/// Tells about the shape under the pointer when it rests over the viewport, beside all of them how
/// to move the view.
class ShapeToolTip : public QObject {
    Q_OBJECT

public:
    using Pick = std::function<std::shared_ptr<StudioShape>(QPoint)>;
    /// What its material is called; empty for nothing.
    using MaterialText = std::function<QString(const std::shared_ptr<StudioShape>&)>;
    using FieldNames = std::function<std::vector<std::string>()>;
    /// Of the background.
    using ViewText = std::function<QString()>;

    ShapeToolTip(ViewportWidget& viewport, Pick pick, MaterialText materialText,
                 FieldNames fieldNames, ViewText viewText);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Its name, its material, and every custom field that has a value.
    [[nodiscard]] QString TextOf(const std::shared_ptr<StudioShape>& shape) const;

    ViewportWidget& m_viewport;
    Pick m_pick;
    MaterialText m_materialText;
    FieldNames m_fieldNames;
    ViewText m_viewText;
};

}  // namespace studio
