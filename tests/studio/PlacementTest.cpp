// The handles of a texture's placement, in the studio with a real pointer.

#include "StudioRig.h"

#include "ProjectionHandles.h"
#include "ViewportWidget.h"

#include <QAbstractSpinBox>
#include <QPushButton>

namespace {

using studio::ProjectionHandle;

class Placement : public StudioTest::StartedStudio {
protected:
    Placement()
    {
        CorvexDB::udtMaterial material;
        material.Wrap = CorvexDB::WrapType::Cylindrical;
        material.Textures.primary = rig.PathOf("none.png").toStdString();
        for (const std::size_t i : {0U, 1U}) {
            material.Ambient = static_cast<std::int32_t>(i);
            rig.Shape(i)->SetApplied(studio::WholeMaterial(material));
        }
        rig.Select({0, 1});
        rig.Shown<QPushButton>("cmdPlacement").click();
    }

    [[nodiscard]] studio::ViewportWidget& View() { return rig.Window().Viewport(); }
    /// In the panel.
    QString Width() { return rig.Find<QAbstractSpinBox>("txtTextureWidth").text(); }
    /// Where the handle of the shape chosen last is.
    QPoint PixelOf(ProjectionHandle handle)
    {
        const studio::ViewOfScene view(View().Camera(), QSizeF(View().size()));
        const studio::ProjectionHandles handles(rig.Shape(1)->Item(), view);
        return view.PixelOf(handles.PlaceOf(handle)).value().toPoint();
    }
    void Pull(ProjectionHandle handle, QPoint way)
    {
        const QPoint from = PixelOf(handle);
        QTest::mousePress(&View(), Qt::LeftButton, {}, from);
        QTest::mouseMove(&View(), from + way / 2);
        QTest::mouseMove(&View(), from + way);
    }

    const ProjectionHandle corner{ProjectionHandle::Kind::Size, 0};
};

TEST_F(Placement, ADragIsSeenAtOnceAndIsOneStepForAllThatAreSelected)
{
    EXPECT_TRUE(rig.Action("Placement Handles").isChecked());
    const auto camera = View().Camera();
    const QPoint to = PixelOf(corner) + QPoint(40, 30);
    Pull(corner, {40, 30});
    EXPECT_GT(Width().toFloat(), 0.0F) << "the panel follows the hand";
    EXPECT_GT(rig.Shape(0)->Item().material->TextureWidth, 0.0F) << "so does the picture";
    EXPECT_EQ(rig.Shape(0)->Material().TextureWidth, 0.0F) << "but nothing is done yet";
    EXPECT_EQ(History().count(), 0);
    QTest::mouseRelease(&View(), Qt::LeftButton, {}, to);
    EXPECT_EQ(View().Camera(), camera);
    ASSERT_EQ(History().count(), 1);
    EXPECT_EQ(History().undoText(), "Change texture projection of 2 shapes");
    const float width = rig.Shape(1)->Material().TextureWidth;
    EXPECT_EQ(Width().toFloat(), width);
    for (const std::size_t i : {0U, 1U}) {
        EXPECT_EQ(rig.Shape(i)->Material().TextureWidth, width);
        EXPECT_EQ(rig.Shape(i)->Material().Ambient, static_cast<std::int32_t>(i));
        EXPECT_EQ(rig.Shape(i)->Applied().coordinates, CorvexSG::CoordinateMode::FromWrap);
    }
    History().undo();
    EXPECT_EQ(rig.Shape(0)->Material().TextureWidth, 0.0F);
    EXPECT_EQ(Width(), "0");
}

TEST_F(Placement, EscapeLeavesNoTrace)
{
    rig.Type("txtAmbient", "55");
    History().undo();
    Pull(corner, {40, 30});
    QTest::keyClick(&View(), Qt::Key_Escape);
    QTest::mouseRelease(&View(), Qt::LeftButton);
    EXPECT_EQ(Width(), "0");
    EXPECT_EQ(rig.Shape(0)->Item().material->TextureWidth, 0.0F);
    EXPECT_TRUE(History().canRedo()) << "what was undone can still be done again";
}

}  // namespace
