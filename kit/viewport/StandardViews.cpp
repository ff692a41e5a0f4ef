#include "StandardViews.h"

#include <QCoreApplication>

namespace studio {

QString StandardView::Title() const
{
    return QCoreApplication::translate("StandardViews", title);
}

Camera StandardView::Of(Camera camera) const
{
    camera.yawDegrees = yawDegrees;
    camera.pitchDegrees = pitchDegrees;
    return camera;
}

const std::array<StandardView, 6>& StandardViews()
{
    static constexpr auto kPlain = Qt::KeyboardModifiers(Qt::NoModifier);
    static constexpr auto kCtrl = Qt::KeyboardModifiers(Qt::ControlModifier);
    static const std::array<StandardView, 6> kViews{{
        {QT_TRANSLATE_NOOP("StandardViews", "&Front"), Qt::Key_1, kPlain, 0.0F, 0.0F},
        {QT_TRANSLATE_NOOP("StandardViews", "&Back"), Qt::Key_1, kCtrl, 180.0F, 0.0F},
        {QT_TRANSLATE_NOOP("StandardViews", "&Right"), Qt::Key_3, kPlain, 90.0F, 0.0F},
        {QT_TRANSLATE_NOOP("StandardViews", "&Left"), Qt::Key_3, kCtrl, -90.0F, 0.0F},
        {QT_TRANSLATE_NOOP("StandardViews", "&Top"), Qt::Key_7, kPlain, 0.0F, 90.0F},
        {QT_TRANSLATE_NOOP("StandardViews", "Botto&m"), Qt::Key_7, kCtrl, 0.0F, -90.0F},
    }};
    return kViews;
}

}  // namespace studio
