#include "ShownMarkup.h"
#include "StudioRig.h"

#include "FindTexturesDialog.h"
#include "ReportDialog.h"
#include "StudioStyle.h"
#include "WaitDialog.h"

#include <QMessageBox>

namespace {

using CorvexTest::ShownAsMarkup;

const QString kName = QStringLiteral(R"(<img src="x">)");

TEST(ForeignName, IsShownLetterByLetterInTheStudio)
{
    const std::string name = kName.toStdString();
    StudioTest::StudioRig rig;
    rig.Start();
    CorvexDB::udtMaterial material = rig.Shape(0)->Material();
    material.Textures.primary = "/gone/" + name + ".png";
    rig.Shape(0)->SetApplied(studio::WholeMaterial(material));
    rig.Select({0});
    rig.Window().OpenModel("/gone/" + kName + ".obj");
    Q_EMIT rig.Window().Panel().DisplayMiscInformation(kName);
    const studio::FindTexturesDialog find({{{name, name}}, true}, "/gone/" + kName);
    studio::Report report;
    report.Add({name, name, studio::Outcome::Dropped, name});
    const studio::ReportDialog reported(kName, kName, report);
    const studio::WaitDialog wait(kName, nullptr, 1);
    int places = 0;
    EXPECT_EQ(ShownAsMarkup(kName, places), "");
    EXPECT_GE(places, 12);
}

TEST(ForeignName, IsNoMarkupInABoxOfTheToolkit)
{
    const auto former = QApplication::style()->name();
    QApplication::setStyle(new studio::StudioStyle);
    QMessageBox box(QMessageBox::Warning, "Save", kName);
    box.setInformativeText(kName);
    box.show();
    int places = 0;
    EXPECT_EQ(ShownAsMarkup(kName, places), "");
    EXPECT_EQ(places, 2);
    QApplication::setStyle(former);
}

}  // namespace
