#include "DocumentBackup.h"
#include "EditJournal.h"
#include "LeftJournal.h"
#include "SceneDocument.h"

#include <QCoreApplication>
#include <QFile>
#include <QThread>

#include <chrono>
#include <cstdio>
#include <memory>

namespace {

using studio::JournalBase;
using studio::SceneContent;
using studio::SceneDocument;
using studio::StudioScene;

/// What a window does with a document, as quickly as it can: recovers what is left, then edits and
/// saves. Two shapes always have the same number.
class Work {
public:
    Work(const std::string& path, const std::string& folder)
        : m_folder(folder), m_opened(SceneDocument::Open(path, folder + "/cache")),
          m_journal(folder, [](const std::string& message) { std::puts(message.c_str()); })
    {
        Show(m_opened.content);
        Begin();
        auto left = studio::FindLeftJournals(folder).found;
        if (!left.empty()) {
            std::vector<std::string> problems;
            Show(left.front().Restored(Content(), problems));
            m_journal.Record(m_shapes, {}, {}, "Recovered");
        }
        if (m_journal.Flush()) {
            // The others are of programs that were killed while they did this.
            for (studio::LeftJournal& journal : left) {
                journal.Discard();
            }
        }
    }

    [[nodiscard]] int Number() const
    {
        const auto& identity = m_shapes[0]->State().applied.identity;
        return identity != nullptr && !identity->name.empty() ? std::stoi(identity->name) : 0;
    }

    void Edit(int number)
    {
        studio::AppliedMaterial applied = studio::WholeMaterial({});
        applied.identity = std::make_shared<studio::SceneMaterial>(
            studio::SceneMaterial{std::to_string(number), {}});
        for (const auto& shape : m_shapes) {
            shape->SetApplied(applied);
        }
        m_journal.Record(m_shapes, {}, {}, "Edit");
    }

    void Save()
    {
        SceneContent content = Content();
        content.mark = Number() + 1;
        m_journal.Flush({m_opened.document.Path(), content.mark});
        studio::BackUpDocument(m_opened.document.Path(), m_folder, 3);
        m_opened.document.Save(content);
        Begin();
    }

private:
    void Show(const SceneContent& content)
    {
        m_shapes.clear();
        for (const studio::ShapeState& state : content.shapes) {
            m_shapes.push_back(std::make_shared<studio::StudioShape>(state));
        }
    }

    [[nodiscard]] SceneContent Content() const
    {
        SceneContent content = m_opened.content;
        content.shapes.clear();
        for (const auto& shape : m_shapes) {
            content.shapes.push_back(shape->State());
        }
        return content;
    }

    void Begin()
    {
        m_journal.Begin(studio::BaseAt(JournalBase::Kind::Document, m_opened.document.Path()),
                        "Work", m_shapes, {});
    }

    std::string m_folder;
    SceneDocument::Opened m_opened;
    StudioScene::Shapes m_shapes;
    studio::EditJournal m_journal;
};

}  // namespace

// Edits the document until it is killed, saves now and then, and says each number; or, when told
// to, saves what it has found and ends.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    Work work(argv[1], argv[2]);
    if (argc > 3) {
        work.Save();
        return 0;
    }
    for (int number = work.Number() + 1;; ++number) {
        work.Edit(number);
        const auto now = std::chrono::system_clock::now().time_since_epoch();
        std::printf("%d %lld\n", number,
                    static_cast<long long>(
                        std::chrono::duration_cast<std::chrono::milliseconds>(now).count()));
        std::fflush(stdout);
        if (number % 16 == 0) {
            work.Save();
        }
        QThread::msleep(7);
    }
}
