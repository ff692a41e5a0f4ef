#include "LayerDrag.h"
#include "PanelRig.h"
#include "SampleFolder.h"

#include <QDropEvent>
#include <QMimeData>

namespace {

using namespace CorvexMaterial;
using namespace CorvexTest;
using enum TextureLayer;

class LayerDrag : public ::testing::Test {
protected:
    LayerDrag()
    {
        QObject::connect(&rig.panel, &ChannelPanel::Edited,
                         [this](const TouchedRows& touched) { edits.push_back(touched); });
    }
    /// False when the widget does not take it there.
    static bool Drop(QWidget& widget, const QMimeData& data, QPoint at,
                     Qt::KeyboardModifiers modifiers)
    {
        const Qt::DropActions actions = Qt::MoveAction | Qt::CopyAction;
        QDragEnterEvent enter(at, actions, &data, Qt::LeftButton, modifiers);
        QDragMoveEvent move(at, actions, &data, Qt::LeftButton, modifiers);
        QDropEvent drop(at, actions, &data, Qt::LeftButton, modifiers);
        QCoreApplication::sendEvent(&widget, &enter);
        QCoreApplication::sendEvent(&widget, &move);
        QCoreApplication::sendEvent(&widget, &drop);
        QCoreApplication::processEvents();
        return move.isAccepted() && drop.isAccepted();
    }
    bool DropOnTab(TextureLayer from, TextureLayer to, Qt::KeyboardModifiers modifiers = {})
    {
        auto& tabs = rig.Find<QTabBar>("tabChannels");
        return Drop(tabs, *MimeOfLayer(rig.Page(), from), tabs.tabRect(RowOf(to).tab - 1).center(),
                    modifiers);
    }

    PanelRig rig;
    SampleFolder files;
    std::vector<TouchedRows> edits;
};

TEST_F(LayerDrag, MovesATextureAndCopiesItWithAltOrCtrl)
{
    for (const Qt::KeyboardModifier key : {Qt::NoModifier, Qt::AltModifier, Qt::ControlModifier}) {
        rig.Page().SetFile(Overlay, "/oak.png");
        rig.Page().SetFile(Bump, "/old.png");
        rig.Page().SetOverlayTranslucencyText("20");
        edits.clear();
        ASSERT_TRUE(DropOnTab(Overlay, Bump, key));
        const bool moves = key == Qt::NoModifier;
        EXPECT_EQ(rig.Page().File(Bump), "/oak.png");
        EXPECT_EQ(rig.Page().File(Overlay), moves ? "" : "/oak.png");
        EXPECT_EQ(rig.Page().OverlayTranslucency(), moves ? 50 : 20) << "as when it is deleted";
        ASSERT_EQ(edits.size(), 1U);
        EXPECT_EQ(edits.front().size(), moves ? 3U : 1U);
        EXPECT_EQ(rig.panel.CurrentTab(), RowOf(Bump).tab);
    }
    QWidget& thumbnail = rig.Find("imgTexture_3");
    rig.Page().SetFile(Specular, "/shine.png");
    EXPECT_TRUE(Drop(thumbnail, *MimeOfLayer(rig.Page(), Specular), {5, 5}, {}));
    EXPECT_EQ(rig.Page().File(Bump), "/shine.png");
}

TEST_F(LayerDrag, TakesNothingFromItselfFromAnotherPanelAndWhereNothingMayChange)
{
    rig.Page().SetFile(Primary, "/oak.png");
    EXPECT_FALSE(DropOnTab(Primary, Primary));
    auto& tabs = rig.Find<QTabBar>("tabChannels");
    const QWidget other;
    EXPECT_FALSE(Drop(tabs, *MimeOfLayer(other, Primary), tabs.tabRect(4).center(), {}));
    EXPECT_FALSE(Drop(tabs, *MimeOfLayer(rig.Page(), Primary), tabs.tabRect(8).center(), {}));
    rig.panel.SetPrimaryLocked(true);
    DropOnTab(Primary, Bump);
    EXPECT_EQ(rig.Page().File(Primary), "/oak.png") << "a simulation holds it";
    EXPECT_EQ(rig.Page().File(Bump), "");
    EXPECT_TRUE(edits.empty());
}

TEST_F(LayerDrag, CropAndTilingGoWithThePrimaryTextureInTheSameEdit)
{
    const QString first = files.Save("first.png", Qt::red, {64, 64});
    const QString next = files.Save("next.png", Qt::blue, {64, 64});
    const CorvexDB::TexturePlacement crop{0.25F, 0.0F, 0.5F, 1.0F};
    const auto drop = [&](TextureLayer layer, const QString& file) {
        rig.Enter(RowOf(layer).tab);
        rig.Page().SetPlacement(crop);
        rig.Page().SetWrap(CorvexDB::WrapType::Flat);
        rig.Page().SetTilesPerUnit(4.0F);
        edits.clear();
        return DropFile(rig.Find(QStringLiteral("imgTexture_%1").arg(RowOf(layer).image)), file,
                        {5, 5});
    };
    rig.Page().SetFile(Primary, first.toStdString());
    ASSERT_TRUE(drop(Primary, first));
    EXPECT_EQ(rig.Page().Placement(), crop) << "it is the same texture";
    ASSERT_TRUE(drop(Bump, next));
    EXPECT_EQ(rig.Page().Placement(), crop) << "it joins the primary one";
    ASSERT_TRUE(drop(Primary, next));
    EXPECT_EQ(rig.Page().Placement(), CorvexDB::TexturePlacement());
    EXPECT_EQ(rig.Page().TilesPerUnit(), 1.0F);
    ASSERT_EQ(edits.size(), 1U);
    EXPECT_TRUE(
        edits.front() ==
        (TouchedRows{{Attribute::Texture}, {Attribute::OriginU}, {Attribute::TilesPerUnit}}));
    rig.Page().SetFile(Primary, {});
    ASSERT_TRUE(drop(Bump, first));
    EXPECT_EQ(rig.Page().Placement(), CorvexDB::TexturePlacement()) << "it is the only one";
}

TEST_F(LayerDrag, TheThumbnailShowsWhatTheCropLeavesOut)
{
    rig.Page().SetFile(Primary, files.Save("red.png", Qt::red, {64, 64}).toStdString());
    rig.Page().RefreshThumbnail();
    QWidget& thumbnail = rig.Find("imgTexture_0");
    const auto at = [&](int x) { return thumbnail.grab().toImage().pixelColor(x, 52); };
    EXPECT_EQ(at(20), at(80));
    rig.Page().SetPlacement({0.5F, 0.0F, 0.5F, 1.0F});
    EXPECT_NE(at(20), at(80));
    EXPECT_EQ(at(80), QColor(Qt::red));
}

}  // namespace
