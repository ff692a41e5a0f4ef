#include "Database.h"
#include "OpenDocument.h"
#include "StatusMessage.h"
#include "StudioRig.h"
#include "ViewportWidget.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>

namespace {

using studio::SceneDocument;
using testing::HasSubstr;

class Documents : public StudioTest::StartedStudio {
protected:
    Documents()
    {
        // What has to be answered is open while the event loop of its own runs.
        QObject::connect(&m_answering, &QTimer::timeout, [this] { AnswerNext(); });
        m_answering.start(5);
    }

    /// The next box is answered with this button; what is no button is a file for a chooser.
    void WillAnswer(const QString& answer) { m_answers.push_back(answer); }
    [[nodiscard]] bool AllWereAsked() const { return m_answers.empty(); }

    studio::OpenDocument& Document() { return rig.Window().Document(); }
    [[nodiscard]] QString Scene() const { return rig.PathOf("scene.corvex"); }
    void Edit(const char* ambient)
    {
        rig.now += std::chrono::seconds(5);
        rig.Type("txtAmbient", ambient);
    }
    SceneDocument::Opened Read(const QString& path)
    {
        return SceneDocument::Open(path.toStdString(), rig.PathOf("pictures").toStdString());
    }
    std::int32_t AmbientIn(const QString& path)
    {
        return Read(path).content.shapes[0].applied.gathered->material.Ambient;
    }

    bool OffersRevert()
    {
        Q_EMIT rig.Window().menuBar()->actions().front()->menu()->aboutToShow();
        return rig.Action("Revert").isEnabled();
    }

    QStringList asked;

private:
    void AnswerNext()
    {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || m_answers.empty()) {
            return;
        }
        const QString answer = m_answers.takeFirst();
        if (auto* chooser = qobject_cast<QFileDialog*>(dialog)) {
            if (answer.isEmpty()) {
                return dialog->reject();
            }
            chooser->selectFile(answer);
            return dialog->accept();
        }
        if (auto* input = qobject_cast<QInputDialog*>(dialog)) {
            input->setTextValue(answer);
            return input->accept();
        }
        if (const auto* box = qobject_cast<QMessageBox*>(dialog)) {
            asked << box->text() + u'\n' + box->informativeText();
        }
        for (auto* button : dialog->findChildren<QPushButton*>()) {
            if (button->text().remove('&') == answer) {
                return button->click();
            }
        }
        if (qobject_cast<QProgressDialog*>(dialog) == nullptr) {
            throw std::logic_error("no button " + answer.toStdString());
        }
        m_answers.prepend(answer);
    }

    QTimer m_answering;
    QStringList m_answers;
};

TEST_F(Documents, WhatIsSavedComesBackAndTheMarkFollowsTheHistory)
{
    studio::MainWindow& window = rig.Window();
    EXPECT_EQ(window.windowTitle(), "Untitled[*] - Corvex Studio");
    EXPECT_FALSE(window.isWindowModified());
    rig.Select({0, 2});
    Edit("77");
    EXPECT_TRUE(window.isWindowModified());
    WillAnswer(rig.PathOf("scene"));
    rig.Trigger("Save");
    ASSERT_TRUE(AllWereAsked());
    EXPECT_EQ(window.windowTitle(), "scene.corvex[*] - Corvex Studio");
    EXPECT_FALSE(window.isWindowModified());
    Edit("78");
    EXPECT_TRUE(window.isWindowModified());
    window.History().undo();
    EXPECT_FALSE(window.isWindowModified());
    window.History().undo();
    EXPECT_TRUE(window.isWindowModified()) << "it is not as it was saved";
    window.History().redo();
    rig.Press("cmdMaterialLibraryAdd");
    EXPECT_FALSE(window.isWindowModified()) << "a library is no part of the document";

    const studio::Camera camera = window.Viewport().Camera();
    const auto names = rig.Shape(0)->Applied().identity->name;
    rig.Trigger("New");
    EXPECT_EQ(window.windowTitle(), "Untitled[*] - Corvex Studio");
    EXPECT_NE(rig.Shape(0)->Material().Ambient, 77);
    window.OpenFile(QUrl::fromLocalFile(Scene()).toString());
    EXPECT_EQ(rig.Shape(0)->Material().Ambient, 77);
    EXPECT_EQ(rig.Shape(2)->Material().Ambient, 77);
    EXPECT_EQ(rig.Shape(0)->Applied().identity->name, names);
    EXPECT_EQ(window.Viewport().Camera(), camera);
    EXPECT_EQ(window.Selected().All().size(), 2U);
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_FALSE(Read(Scene()).content.picture.empty());
    EXPECT_TRUE(asked.empty());
}

TEST_F(Documents, ChangesAreLostOnlyWhenTheUserSaysSo)
{
    rig.Select({0});
    Edit("11");
    Document().SaveAs(Scene());
    Edit("22");
    WillAnswer("Cancel");
    EXPECT_FALSE(rig.Window().close());
    ASSERT_EQ(asked.size(), 1);
    EXPECT_THAT(asked[0].toStdString(), HasSubstr("\"scene.corvex\"?\nIt was saved less than a"));
    WillAnswer("Cancel");
    rig.Trigger("New");
    EXPECT_EQ(rig.Shape(0)->Material().Ambient, 22);
    WillAnswer("Discard");
    rig.Trigger("Revert");
    EXPECT_EQ(rig.Shape(0)->Material().Ambient, 11);
    rig.Select({0});
    Edit("33");
    WillAnswer("Save");
    rig.Trigger("New");
    EXPECT_EQ(AmbientIn(Scene()), 33);

    rig.Select({0});
    Edit("44");
    for (const char* answer : {"Save", ""}) {  // a chooser that is cancelled saves nothing
        WillAnswer(answer);
    }
    EXPECT_FALSE(rig.Window().close());
    EXPECT_TRUE(AllWereAsked());
    rig.Window().QuitUnasked();
    EXPECT_TRUE(rig.Window().close());
}

TEST_F(Documents, WhatIsEditedWhileAModelIsReadIsAskedAboutToo)
{
    const QString model = QStringLiteral(MODEL_FOLDER "/still-life.obj");
    rig.Select({0});
    Edit("11");
    WillAnswer("Discard");
    rig.Window().OpenFile(model);
    Edit("22");
    WillAnswer("Save");
    WillAnswer("");
    ASSERT_TRUE(QTest::qWaitFor([this] { return AllWereAsked(); }, 30000));
    EXPECT_EQ(rig.Shape(0)->Material().Ambient, 22);
    WillAnswer("Discard");
    rig.Window().OpenFile(model);
    EXPECT_TRUE(QTest::qWaitFor([this] { return rig.Window().Scene().All().size() == 5; }, 30000));
    EXPECT_EQ(asked.size(), 3) << "once for all that was there before";
}

TEST_F(Documents, ClosingTheWindowWaitsForASave)
{
    bool hasClosedAtOnce = true;
    const auto shapes = rig.Window().Scene().All();
    QTimer::singleShot(0, [&] {
        EXPECT_TRUE(CorvexTest::DropFile(rig.Window(), rig.PathOf("any.corvex"), {20, 20}));
        rig.Trigger("New");
        hasClosedAtOnce = rig.Window().close();
    });
    Document().SaveAs(Scene());
    EXPECT_EQ(rig.Window().Scene().All(), shapes);
    EXPECT_FALSE(hasClosedAtOnce);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !rig.Window().isVisible(); }));
    EXPECT_EQ(Read(Scene()).content.shapes.size(), rig.Window().Scene().All().size());
}

TEST_F(Documents, AMessageCanBeAnsweredWhileAFileIsWritten)
{
    bool isOnTop = false;
    QTimer::singleShot(0, [&] {
        QMessageBox box(&rig.Window());
        // Later than what keeps the user off the window would come up.
        QTimer::singleShot(700, &box, [&] {
            isOnTop = QApplication::activeModalWidget() == &box;
            box.accept();
        });
        box.exec();
    });
    Document().SaveAs(Scene());
    EXPECT_TRUE(isOnTop);
}

TEST_F(Documents, OneThatAnotherHasOpenIsReadOnlyHere)
{
    rig.Select({0});
    Edit("11");
    Document().SaveAs(Scene());
    rig.Trigger("New");
    auto other = Read(Scene());
    ASSERT_EQ(other.document.ReadOnlyReason(), "");
    rig.Window().OpenFile(Scene());
    EXPECT_EQ(rig.Window().windowTitle(), "scene.corvex[*] [read-only] - Corvex Studio");
    EXPECT_THAT(rig.Find<QLabel>("miscField").text().toStdString(), HasSubstr("Read-only"));
    rig.Select({0});
    Edit("22");
    WillAnswer(rig.PathOf("mine.corvex"));
    rig.Trigger("Save");
    EXPECT_EQ(rig.Window().windowTitle(), "mine.corvex[*] - Corvex Studio");
    EXPECT_EQ(AmbientIn(Scene()), 11);
}

TEST_F(Documents, WhatAnotherProgramWroteIsNotOverwrittenUnasked)
{
    rig.Select({0});
    Edit("11");
    Document().SaveAs(Scene());
    Document().SaveCopy(rig.PathOf("copy.corvex"));
    const QByteArray theirs = CorvexTest::ContentOf(rig.PathOf("copy.corvex"));
    EXPECT_FALSE(OffersRevert());
    ASSERT_TRUE(QFile::remove(Scene()));
    rig.files.Write("scene.corvex", theirs);
    EXPECT_TRUE(OffersRevert());
    rig.Trigger("Revert");
    EXPECT_FALSE(OffersRevert());
    ASSERT_TRUE(QFile::remove(Scene()));
    rig.files.Write("scene.corvex", theirs);
    rig.Select({0});
    Edit("22");
    WillAnswer("Cancel");
    rig.Trigger("Save");
    EXPECT_TRUE(rig.Window().isWindowModified());
    EXPECT_EQ(AmbientIn(Scene()), 11);
    WillAnswer("Overwrite");
    rig.Trigger("Save");
    EXPECT_EQ(AmbientIn(Scene()), 22);
    EXPECT_FALSE(rig.Window().isWindowModified());
    Edit("33");
    rig.Trigger("Save");
    EXPECT_EQ(AmbientIn(Scene()), 33);
    EXPECT_TRUE(QFile::remove(Scene()));
    Edit("44");
    WillAnswer("Save There Again");
    rig.Trigger("Save");
    EXPECT_EQ(AmbientIn(Scene()), 44);
    EXPECT_THAT(asked.back().toStdString(), HasSubstr("not there any more"));
}

TEST_F(Documents, AFailureIsToldAndNothingIsTakenForSaved)
{
    rig.Select({0});
    Edit("11");
    Document().SaveAs(Scene());
    Edit("22");
    rig.files.Write("taken", {});
    EXPECT_ANY_THROW(Document().SaveAs(rig.PathOf("taken/scene.corvex")));
    EXPECT_EQ(Document().Path(), Scene());
    EXPECT_TRUE(rig.Window().isWindowModified());
    Document().Save();
    EXPECT_EQ(AmbientIn(Scene()), 22);
    const auto shapes = rig.Window().Scene().All();
    rig.Window().OpenFile(rig.files.Write("bad.corvex", "hello"));
    ASSERT_EQ(rig.prompts.shown.size(), 1U);
    EXPECT_THAT(rig.prompts.shown[0].text, HasSubstr("bad.corvex"));
    EXPECT_EQ(rig.Window().Scene().All(), shapes);
    EXPECT_EQ(Document().Path(), Scene());
}

TEST_F(Documents, OpeningOneCanBeCancelledAndEverythingStays)
{
    rig.Select({0});
    Edit("11");
    Document().SaveAs(Scene());
    Document().SaveCopy(rig.PathOf("other.corvex"));
    Edit("22");
    const auto shapes = rig.Window().Scene().All();
    for (const QString& file : {rig.PathOf("other.corvex"), Scene()}) {
        // Whoever writes keeps it waiting.
        studio::Database writer(file.toStdString(), studio::Database::Mode::Existing);
        writer.Run("BEGIN EXCLUSIVE");
        QTimer written;
        written.callOnTimeout([&] {
            if (AllWereAsked()) {
                writer.Run("COMMIT");
                written.stop();
            }
        });
        written.start(5);
        WillAnswer("Discard");
        WillAnswer("Cancel");
        rig.Window().OpenFile(file);
        EXPECT_EQ(rig.Window().Scene().All(), shapes);
        EXPECT_EQ(rig.Window().windowTitle(), "scene.corvex[*] - Corvex Studio");
        EXPECT_THAT(Read(Scene()).document.ReadOnlyReason(), HasSubstr("another window"));
    }
    rig.Trigger("Save");
    EXPECT_EQ(asked.size(), 2) << "nobody else has written to it";
    EXPECT_EQ(AmbientIn(Scene()), 22);
    EXPECT_TRUE(rig.prompts.shown.empty());
}

TEST_F(Documents, TexturesGoBesideItOrIntoIt)
{
    const QString oak = rig.files.Save("elsewhere/oak.png", QColor(Qt::red));
    const QString other = rig.files.Save("other/oak.png", QColor(Qt::green));
    const auto wear = [this](std::size_t shape, const QString& file) {
        CorvexDB::udtMaterial material;
        material.Textures.primary = file.toStdString();
        rig.Shape(shape)->SetApplied(studio::WholeMaterial(material));
    };
    wear(0, oak);
    wear(1, other);
    wear(2, rig.PathOf("gone.png"));
    Document().SaveAs(Scene());
    rig.Trigger("Collect Files...");
    const auto textureOf = [this](std::size_t shape) {
        return QString::fromStdString(rig.Shape(shape)->Material().Textures.primary);
    };
    EXPECT_EQ(textureOf(0), rig.PathOf("Textures/oak.png"));
    EXPECT_EQ(textureOf(1), rig.PathOf("Textures/oak 2.png"));
    EXPECT_EQ(textureOf(2), rig.PathOf("gone.png"));
    EXPECT_EQ(QImage(textureOf(1)).pixelColor(0, 0), QColor(Qt::green));
    EXPECT_EQ(rig.Window().History().count(), 1);
    EXPECT_THAT(rig.Find<QLabel>("miscField").text().toStdString(), HasSubstr("missing: 1"));
    rig.Window().History().undo();
    EXPECT_EQ(textureOf(0), oak);
    rig.Trigger("Collect Files...");
    EXPECT_EQ(textureOf(1), rig.PathOf("Textures/oak 2.png")) << "equal files are used again";

    rig.Trigger("Save");
    rig.Trigger("Keep Textures in Document");
    EXPECT_TRUE(rig.Window().isWindowModified());
    rig.Trigger("Save");
    EXPECT_FALSE(rig.Window().isWindowModified());
    QDir(rig.PathOf("Textures")).removeRecursively();
    rig.Trigger("New");
    rig.Window().OpenFile(Scene());
    EXPECT_EQ(QImage(textureOf(1)).pixelColor(0, 0), QColor(Qt::green));
    EXPECT_THAT(rig.Find<QLabel>("summary").text().toStdString(), HasSubstr("missing: 1"));
    WillAnswer("Find...");
    ASSERT_TRUE(QTest::qWaitFor([this] { return AllWereAsked(); }));
    WillAnswer("");  // where to look
    EXPECT_TRUE(QTest::qWaitFor([this] { return AllWereAsked(); }));
}

TEST_F(Documents, MaterialsHaveNamesThatShapesShare)
{
    rig.Select({0});
    WillAnswer("Teak");
    rig.Trigger("Rename Material...");
    const auto shared = rig.Shape(0)->Applied();
    EXPECT_EQ(shared.identity->name, "Teak");
    EXPECT_EQ(rig.Window().History().count(), 1);
    for (const std::size_t shape : {1U, 2U}) {
        rig.Shape(shape)->SetApplied(shared);
    }
    rig.Select({1});
    auto& status = rig.Find<studio::StatusMessage>("miscField");
    status.Show({});
    EXPECT_EQ(status.text(), "Vase selected (Teak, shared by 3 shapes)");
    rig.Trigger("Make Unique");
    EXPECT_EQ(status.text(), "Vase selected (Teak 2)");
    EXPECT_EQ(rig.Shape(2)->Applied().identity, shared.identity);
    EXPECT_TRUE(rig.Window().isWindowModified());
    rig.Window().History().undo();
    EXPECT_EQ(rig.Shape(1)->Applied().identity, shared.identity);
}

}  // namespace
