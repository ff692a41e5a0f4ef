#include "Household.h"
#include "LeftJournal.h"
#include "ParametricMesh.h"
#include "SceneDocument.h"

#include <QDateTime>

#include <thread>

namespace {

using LongTest::Household;
using testing::ElementsAre;
using testing::IsEmpty;

const QString kDocument = QStringLiteral("documents/scene.corvex");
const QString kState = QStringLiteral("home/state/CorvexStudio/");

/// The studio with somebody at work in its window.
void PrepareWork(const Household& user, QProcess& studio, const char* task = "")
{
    user.Prepare(studio, {user.PathOf(kDocument)});
    QProcessEnvironment environment = user.Environment();
    environment.insert("QT_PLUGIN_PATH", USER_AT_WORK);
    environment.insert("QT_QPA_GENERIC_PLUGINS", QStringLiteral("user-at-work") + task);
    studio.setProcessEnvironment(environment);
}

/// That of the latest edit, which both shapes have in common.
int NumberIn(const studio::SceneContent& content)
{
    const studio::AppliedMaterial& one = content.shapes.front().applied;
    EXPECT_EQ(one, content.shapes.back().applied);
    return QString::fromStdString(one.gathered->material.CustomFields[0]).toInt();
}

/// In the document, or with the edits that a journal puts on it. Looks at copies, for the studio is
/// to find what was left as it is.
int NumberFound(const Household& user)
{
    const CorvexTest::SampleFolder copies;
    for (const auto& [from, to] :
         {std::pair{QStringLiteral("documents"), "documents"}, {kState + "recovery", "recovery"}}) {
        if (QFile::exists(user.PathOf(from))) {
            std::filesystem::copy(user.PathOf(from).toStdString(), copies.PathOf(to).toStdString());
        }
    }
    auto opened = studio::SceneDocument::Open(copies.PathOf(kDocument).toStdString(),
                                              copies.PathOf("cache").toStdString());
    EXPECT_THAT(opened.document.StructureProblems(), IsEmpty());
    int number = NumberIn(opened.content);
    // A journal names the document, which is rolled back by whoever looks into it.
    QDir().rename(user.PathOf("documents"), user.PathOf("hidden"));
    const auto left = studio::FindLeftJournals(copies.Path().toStdString());
    QDir().rename(user.PathOf("hidden"), user.PathOf("documents"));
    EXPECT_THAT(left.refused, IsEmpty());
    for (const studio::LeftJournal& journal : left.found) {
        std::vector<std::string> problems;
        number = std::max(number, NumberIn(journal.Restored(opened.content, problems)));
        EXPECT_THAT(problems, IsEmpty());
    }
    return number;
}

void MakeDocument(const Household& user)
{
    studio::SceneContent content;
    content.shapes.resize(2);
    content.shapes[0].mesh = studio::SphereMesh(1.0F);
    content.shapes[0].applied = studio::WholeMaterial({});
    content.shapes[0].applied.identity = std::make_shared<studio::SceneMaterial>();
    content.shapes[1] = content.shapes[0];
    QDir().mkpath(user.PathOf("documents"));
    std::ignore = studio::SceneDocument::Create(user.PathOf(kDocument).toStdString(), content,
                                                user.PathOf("cache").toStdString());
}

/// Starts, lets it work for a while and kills it. The number that is found then.
int KillOnce(Household& user, int number)
{
    QProcess studio;
    PrepareWork(user, studio, user.kills % 3 == 0 ? ":edit" : "");
    studio.start();
    QByteArray told;
    while (!told.contains("there") && studio.waitForReadyRead(60000)) {
        told += studio.readAll();
    }
    constexpr unsigned kLongest = 1600;
    EXPECT_FALSE(studio.waitForFinished(static_cast<int>(user.dice() % kLongest)));
    const qint64 killed = QDateTime::currentMSecsSinceEpoch();
    studio.kill();
    studio.waitForFinished();
    ++user.kills;
    told += studio.readAll();
    int least = number;
    int most = number + 1;
    for (const QByteArray& line : told.split('\n')) {
        const QByteArrayList words = line.split(' ');
        const int which = words.value(2).toInt();
        const bool isOld = words.value(1).toLongLong() < killed - 1000;
        if (words[0] == "saved" || (words[0] == "edited" && isOld)) {
            least = std::max(least, which);
        }
        most = std::max(most, which + 1);
        EXPECT_NE(words[0], "told") << line.toStdString();
    }
    const int found = NumberFound(user);
    EXPECT_TRUE(told.contains("there") && !told.contains("unsaved") && found >= least &&
                found <= most)
        << found << " instead of " << least << " to " << most << " after " << told.toStdString();
    return found;
}

void KillAtWork(unsigned seed, int kills)
{
    Household user;
    user.dice.seed(seed);
    MakeDocument(user);
    int number = 0;
    while (user.kills < kills && !testing::Test::HasFailure()) {
        number = KillOnce(user, number);
    }
    EXPECT_GT(number, kills);
    QProcess studio;
    PrepareWork(user, studio, ":save");
    studio.start();
    EXPECT_TRUE(studio.waitForFinished(60000));
    EXPECT_EQ(studio.exitCode(), 0) << studio.readAll().toStdString();
    EXPECT_EQ(NumberFound(user), number);
    EXPECT_THAT(user.FilesIn("documents"), ElementsAre("scene.corvex"));
    EXPECT_THAT(user.FilesIn(kState + "recovery"), IsEmpty());
    EXPECT_THAT(user.FilesIn("temp"), IsEmpty());
    EXPECT_THAT(user.FilesIn(kState + "backups"),
                testing::AllOf(testing::SizeIs(testing::Le(5)),
                               testing::Each(testing::MatchesRegex("scene-.*[.]corvex"))));
}

// Mostly they wait, for the disk and for the moment of the next kill.
TEST(KilledWork, IsTheOldOrTheNewAndLosesNoMoreThanASecond)
{
    std::vector<std::thread> users;
    for (const unsigned seed : {1U, 2U, 3U, 4U}) {
        users.emplace_back(KillAtWork, seed, 125);
    }
    std::ranges::for_each(users, &std::thread::join);
}

}  // namespace
