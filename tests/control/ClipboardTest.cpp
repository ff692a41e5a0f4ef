#include "ControlRig.h"
#include "SampleMaterial.h"
#include "TouchedRows.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>

namespace {

using namespace CorvexTest;
using CorvexMaterial::Attribute;
using CorvexMaterial::Status;
using CorvexMaterial::TouchedRows;
using enum CorvexMaterial::Attribute;

class Clipboard : public WithStartedControl {
protected:
    Clipboard() { QGuiApplication::clipboard()->clear(); }

    /// What the context menu offers there.
    QAction& Entry(QWidget& widget, const QString& text, const QString& submenu = {})
    {
        QCoreApplication::processEvents();  // everything has its place
        QContextMenuEvent asked(QContextMenuEvent::Keyboard, widget.rect().center(),
                                widget.mapToGlobal(widget.rect().center()));
        QCoreApplication::sendEvent(&widget, &asked);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu != nullptr && !submenu.isEmpty()) {
            for (QAction* action : menu->actions()) {
                if (action->menu() != nullptr && action->text() == submenu) {
                    menu = action->menu();
                }
            }
        }
        for (QAction* action : menu != nullptr ? menu->actions() : QList<QAction*>()) {
            if (action->text().remove(u'&').section(u'\t', 0, 0) == text) {
                return *action;
            }
        }
        throw std::logic_error("the menu does not offer " + text.toStdString());
    }
    void Take(const char* control, const QString& text, const QString& submenu = {})
    {
        QAction& entry = Entry(rig.Shown(control), text, submenu);
        if (!entry.isEnabled()) {
            throw std::logic_error(text.toStdString() + " is disabled");
        }
        entry.trigger();
        CloseMenu();
    }
    bool Offers(const char* control, const QString& text, const QString& submenu = {})
    {
        const bool isEnabled = Entry(rig.Shown(control), text, submenu).isEnabled();
        CloseMenu();
        return isEnabled;
    }
    static void CloseMenu() { delete QApplication::activePopupWidget(); }

    TouchedRows Edited()
    {
        TouchedRows rows;
        for (const auto& edit : std::exchange(rig.edits, {})) {
            for (const auto& row : edit.rows) {
                rows.push_back({row.attribute, row.element});
            }
        }
        return rows;
    }
};

TEST_F(Clipboard, BringsAWholeMaterialToAnotherPanelAlsoThroughAnEditor)
{
    rig.Control().CopyFieldToFormMaterial(KeptMaterial());
    rig.Control().SetMaterialName("Oak");
    const auto shown = rig.Previewed();
    ASSERT_EQ(rig.Control().CopyMaterial(), Status::Success);
    const QString text = QGuiApplication::clipboard()->text();
    for (const bool throughEditor : {false, true}) {
        if (throughEditor) {
            QGuiApplication::clipboard()->setText("\n" + text + "\n");
        }
        rig.Control().DefaultMaterial();
        rig.edits.clear();
        EXPECT_EQ(rig.Control().PastedTitle(), "Material");
        ASSERT_EQ(rig.Control().PasteMaterial(), Status::Success);
        EXPECT_TRUE(rig.Previewed() == shown);
        ASSERT_EQ(rig.edits.size(), 1U);
        EXPECT_TRUE(rig.edits.front().isWhole);
        EXPECT_EQ(rig.edits.front().name, "Oak");
    }
}

TEST_F(Clipboard, RefusesWhatIsNoMaterialAndSaysSo)
{
    const auto before = rig.Previewed();
    const QString head = QStringLiteral(R"({"corvexMaterial":1,"attributes":)");
    for (const QString& text :
         {QString(), QStringLiteral("Oak"), QStringLiteral("{"), QStringLiteral(R"({"colour":5})"),
          QStringLiteral(R"({"corvexMaterial":2,"attributes":{"ambient":5}})"), head + "{}}",
          head + "[1,2]}", head + R"({"ambient":"60","wrap":9,"customFields":5}})",
          head + R"({"textures":{"primary":"Textures/oak.png"}}})", head + QString(100000, '['),
          head + R"({"ambient":5},"more":")" + QString(1 << 20, 'x') + R"("})"}) {
        QGuiApplication::clipboard()->setText(text);
        rig.statusTexts.clear();
        EXPECT_EQ(rig.Control().PasteMaterial(), Status::Success);
        EXPECT_EQ(rig.Control().PastedTitle(), QString()) << text.left(80).toStdString();
        ASSERT_EQ(rig.statusTexts.size(), 1U);
        EXPECT_TRUE(rig.statusTexts.front().startsWith("There is no material"))
            << text.left(80).toStdString();
    }
    EXPECT_TRUE(rig.edits.empty());
    EXPECT_TRUE(rig.Previewed() == before);

    // What is right beside what is wrong is taken.
    QGuiApplication::clipboard()->setText(head + R"({"ambient":5,"wrap":9}})");
    rig.Control().PasteMaterial();
    EXPECT_EQ(rig.Previewed().Ambient, 5);
    EXPECT_THAT(rig.statusTexts.back().toStdString(), testing::HasSubstr("\"wrap\""));
    EXPECT_TRUE(Edited() == TouchedRows{{Ambient}});
}

TEST_F(Clipboard, OfOneGroupOrLayerTouchesItsRowsAlone)
{
    auto sample = KeptMaterial();
    sample.RayTrace = {};
    sample.Textures.overlay = "/tmp/decal.png";
    rig.Control().CopyFieldToFormMaterial(sample);
    Take("sldAmbient", "Copy Surface", "Surface");
    rig.Control().DefaultMaterial();
    rig.edits.clear();
    EXPECT_FALSE(Offers("cboAlphaTest", "Paste Blending", "Blending"));
    Take("lblAmbient", "Paste Surface", "Surface");
    EXPECT_TRUE(
        Edited() ==
        (TouchedRows{{Color}, {Emissive}, {Specular}, {Transparency}, {Ambient}, {DoubleSided}}));
    EXPECT_EQ(rig.Previewed().Ambient, sample.Ambient);
    EXPECT_EQ(rig.Previewed().Textures, CorvexDB::TextureFiles());
    // One of its values is in it too, and a group is all that the material can be given of it.
    Type(rig.Field("txtAmbient"), "1");
    Take("txtAmbient", "Paste Ambient");
    EXPECT_EQ(rig.Previewed().Ambient, sample.Ambient);
    EXPECT_TRUE(Offers("txtAmbient", "Paste Surface", "Material"));

    rig.Control().CopyFieldToFormMaterial(sample);
    Take("imgTexture_1", "Copy Overlay");
    rig.edits.clear();
    Take("imgTexture_3", "Paste Bump map");
    EXPECT_EQ(rig.Previewed().Textures.bump, "/tmp/decal.png");
    EXPECT_TRUE(Edited() == TouchedRows{{TextureBumpmap}});
}

TEST_F(Clipboard, OfOneValueFitsItsKindAndIsTextElsewhere)
{
    rig.host.customFields.names = {"R&D"};
    rig.Control().UpdateCustomFieldNames();
    Type(rig.Field("txtAmbient"), "37");
    Take("sldAmbient", "Copy Ambient");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "37");
    Take("txtSpecular", "Paste Specular");
    EXPECT_EQ(rig.Previewed().Specular, 37);
    EXPECT_FALSE(Offers("cboColor", "Paste Color"));
    EXPECT_FALSE(Offers("chkDoubleSided", "Paste Double-sided"));
    EXPECT_FALSE(Offers("imgTexture_0", "Paste Texture"));

    Choose(rig.List("cboColor"), "Bronze");
    Take("picVBColor", "Copy Color");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "#8c7824");
    EXPECT_FALSE(Offers("txtAmbient", "Paste Ambient"));

    struct Row {
        const char* control;
        const char* paste;
        const char* text;
        bool fits;
    };
    for (const Row& row : {Row{"txtAmbient", "Paste Ambient", " 12 ", true},
                           Row{"txtAmbient", "Paste Ambient", "twelve", false},
                           Row{"cboColor", "Paste Color", "bronze", true},
                           Row{"cboColor", "Paste Color", "#12345", false},
                           Row{"cboColor", "Paste Color", "60", false},
                           Row{"chkFlipU", "Paste Horizontal flip", "on", true},
                           Row{"cboAlphaTest", "Paste Alpha test", "3", false},
                           Row{"txtCustomMaterialFieldValue_0", "Paste R&D", "any text", true}}) {
        QGuiApplication::clipboard()->setText(row.text);
        EXPECT_EQ(Offers(row.control, QString(row.paste).remove(u'&')), row.fits)
            << row.paste << row.text;
    }
    Take("txtCustomMaterialFieldValue_0", "Paste RD");
    EXPECT_EQ(rig.Previewed().CustomFields[0], "any text");
    // The text box has its own entries too.
    EXPECT_TRUE(Offers("txtCustomMaterialFieldValue_0", "Select All"));
}

TEST_F(Clipboard, ResetsToTheFactorysAndToTheUsersDefaults)
{
    EXPECT_FALSE(Offers("txtAmbient", "Reset to Mine")) << "nothing is remembered";
    Type(rig.Field("txtAmbient"), "11");
    Type(rig.Field("txtSpecular"), "12");
    rig.Press("cmdMaterialRemember");
    Type(rig.Field("txtAmbient"), "1");
    Type(rig.Field("txtSpecular"), "2");
    rig.edits.clear();
    Take("txtAmbient", "Reset to Mine");
    EXPECT_EQ(rig.Previewed().Ambient, 11);
    EXPECT_TRUE(Edited() == TouchedRows{{Ambient}});
    Take("txtAmbient", "Reset to Default");
    EXPECT_EQ(rig.Previewed().Ambient, 60);
    Take("lblAmbient", "Reset to Mine", "Surface");
    EXPECT_EQ(rig.Previewed().Specular, 12);
    EXPECT_EQ(Edited().size(), 7U) << "the one, and the six of the group";
    Take("txtAmbient", "Reset to Default", "Material");
    EXPECT_EQ(rig.Previewed().Specular, 0);
    EXPECT_TRUE(rig.edits.at(0).isWhole);
}

}  // namespace
