#include "EditJournal.h"

#include "JournalFile.h"
#include <CorvexMaterial/Status.h>

#include <QBuffer>
#include <QDateTime>
#include <QPainter>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace studio {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// What follows each other more quickly is written together.
constexpr auto kGathering = 150ms;
/// After which a disk that refused is asked again.
constexpr auto kPatience = 3s;
constexpr QSize kPictureSize(256, 192);
constexpr QRgb kBehindPicture = qRgb(56, 61, 69);

std::int64_t Now()
{
    return QDateTime::currentMSecsSinceEpoch();
}

}  // namespace

/// The journal's thread, and the file that belongs to it.
class EditJournal::Writer {
public:
    Writer(std::string folder, Trouble trouble)
        : m_folder(std::move(folder)), m_trouble(std::move(trouble)), m_file(m_folder),
          m_thread([this] { Run(); })
    {
    }

    ~Writer()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_isEnding = true;
        }
        m_wake.notify_all();
        m_thread.join();
    }

    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    void Begin(JournalHead head, const StudioScene::Shapes& shapes)
    {
        const std::lock_guard lock(m_mutex);
        TakeBase(std::move(head), shapes);
        m_next.base = m_told;
        m_wake.notify_all();
    }

    void Take(const JournalHead& head, const StudioScene::Shapes& shapes,
              const JournalAround& around, const Camera& camera, std::string_view what, int count)
    {
        const std::lock_guard lock(m_mutex);
        FollowMeshes(head, shapes);
        const bool isElsewhere = std::exchange(m_toldAround, around) != around;
        if (!TakeChanges(shapes) && !isElsewhere) {
            return;
        }
        m_next.isEdited = true;
        JournalEdits& edits = m_next.edits;
        const std::int64_t now = Now();
        // As the undo history joins what follows quickly.
        edits.count += edits.what == what && now - edits.made < 1000 ? 0 : count;
        edits.made = now;
        edits.what = what;
        edits.camera = camera;
        const JournalAround& base = head.around;
        edits.textures =
            around.textures == base.textures ? std::nullopt : std::optional(around.textures);
        edits.views = around.views == base.views ? std::nullopt : std::optional(around.views);
        edits.saving = {};
        m_wake.notify_all();
    }

    void Show(const QImage& picture)
    {
        const std::lock_guard lock(m_mutex);
        m_next.picture = picture;
        m_wake.notify_all();
    }

    bool Flush(const JournalSaving& saving)
    {
        std::unique_lock lock(m_mutex);
        m_next.isEdited = m_next.isEdited || saving.mark != 0;
        m_next.edits.saving = saving;
        m_isHurried = true;
        m_wake.notify_all();
        m_idle.wait(lock, [this] { return !m_next.Waits() && !m_isBusy; });
        m_isHurried = false;
        return !m_isInTrouble;
    }

    void Leave()
    {
        const std::lock_guard lock(m_mutex);
        m_isLeft = true;
    }

private:
    struct Work {
        std::optional<JournalHead> head;  ///< with a base: another scene
        std::vector<ShapeState> base;
        bool isEdited = false;
        std::vector<std::size_t> places;  ///< of shapes that are other than they were
        std::vector<EditedShape> shapes;  ///< what these are in the end
        JournalEdits edits;
        QImage picture;

        [[nodiscard]] bool Waits() const { return head || isEdited; }
    };

    void TakeBase(JournalHead head, const StudioScene::Shapes& shapes)
    {
        m_next = {};
        m_toldAround = head.around;
        m_next.head = std::move(head);
        m_told.clear();
        m_told.reserve(shapes.size());
        for (const auto& shape : shapes) {
            m_told.push_back(shape->State());
        }
        m_waits.assign(shapes.size(), 0);
    }

    /// Whoever gives a scene other meshes leaves its base: all of it is written then, by shapes'
    /// names.
    void FollowMeshes(const JournalHead& head, const StudioScene::Shapes& shapes)
    {
        const bool isSame = std::ranges::equal(
            shapes, m_told, [](const std::shared_ptr<StudioShape>& shape, const ShapeState& told) {
                return shape->State().mesh == told.mesh;
            });
        if (!isSame) {
            TakeBase(head, shapes);
            for (ShapeState& told : m_told) {
                told.applied.gathered = nullptr;
            }
            m_next.base = m_told;
        }
    }

    /// False when there are none.
    bool TakeChanges(const StudioScene::Shapes& shapes)
    {
        bool isAny = false;
        for (std::size_t place = 0; place < shapes.size(); ++place) {
            const ShapeState& now = shapes[place]->State();
            ShapeState& told = m_told[place];
            if (now.applied == told.applied && now.option == told.option &&
                now.moved == told.moved && now.placement == told.placement &&
                now.flags == told.flags) {
                continue;
            }
            EditedShape(place, now).PutInto(told);
            isAny = true;
            if (std::exchange(m_waits[place], 1) == 0) {
                m_next.places.push_back(place);
            }
        }
        return isAny;
    }

    void Run()
    {
        std::unique_lock lock(m_mutex);
        while (!m_isEnding || (m_isLeft && m_next.Waits())) {
            m_wake.wait_for(
                lock, m_isUnfinished ? Clock::duration(kPatience) : Clock::duration(1h), [this] {
                    return m_isEnding || m_isHurried || m_next.Waits() || !m_next.picture.isNull();
                });
            if (!m_isEnding && !m_isHurried) {
                m_wake.wait_for(lock, kGathering, [this] { return m_isEnding || m_isHurried; });
            }
            Work work = TakeWork();
            m_isBusy = true;
            lock.unlock();
            Do(work);
            lock.lock();
            m_isBusy = false;
            m_isHurried = m_isHurried && m_next.Waits();
            m_idle.notify_all();
        }
        lock.unlock();
        if (!m_isLeft) {
            m_file.Remove();
        }
    }

    Work TakeWork()
    {
        Work work = std::move(m_next);
        m_next = {};
        m_next.edits = work.edits;
        work.shapes.reserve(work.places.size());
        for (const std::size_t place : work.places) {
            work.shapes.emplace_back(place, m_told[place]);
            m_waits[place] = 0;
        }
        return work;
    }

    void Do(Work& work)
    {
        if (work.head) {
            if (!work.isEdited) {
                m_file.Remove();
            }
            m_isAnother = true;
            m_head = *work.head;
            m_writing.emplace(std::move(work.base), m_folder);
            m_changed.clear();
            m_unwritten.clear();
            m_isWritten = true;
        }
        m_isWritten = m_isWritten && !work.isEdited;
        for (const EditedShape& shape : work.shapes) {
            m_unwritten[shape.place] = shape;
            if (shape.IsAsIn(m_writing->Base()[shape.place])) {
                m_changed.erase(shape.place);
            } else {
                m_changed[shape.place] = shape;
            }
        }
        m_edits = work.edits;
        if (!work.picture.isNull()) {
            m_picture = work.picture;
        }
        WriteOrTell();
        WritePicture();
        m_isUnfinished = !m_isWritten || (m_file.IsThere() && !m_picture.isNull());
    }

    void WriteOrTell()
    {
        if (m_isWritten) {
            return;
        }
        try {
            Write();
            m_unwritten.clear();
            m_isWritten = true;
            m_isInTrouble = false;
        } catch (const CorvexMaterial::Error& error) {
            if (!std::exchange(m_isInTrouble, true)) {
                m_trouble(error.what());
            }
        }
    }

    void Write()
    {
        if (m_changed.empty() && !m_edits.textures && !m_edits.views) {
            m_file.Remove();
            return;
        }
        if (m_file.IsThere() && !m_isAnother && !m_file.IsLarge()) {
            const std::string line = m_writing->EditsLine(m_edits, m_unwritten);
            try {
                m_file.Append(line);
                return;
            } catch (const CorvexMaterial::Error&) {
                // Perhaps there is room for less, or somebody has removed it.
            }
        }
        m_writing->BeginFile();
        m_isAnother = true;
        m_file.Replace(JournalWriting::HeadLine(m_head) + m_writing->EditsLine(m_edits, m_changed));
        m_isAnother = false;
    }

    /// Not that it changes at every step of a drag.
    void WritePicture()
    {
        const auto now = Clock::now();
        if (!m_file.IsThere() || m_picture.isNull() || now - m_pictureWritten < kPatience) {
            return;
        }
        m_pictureWritten = now;
        QByteArray png;
        QBuffer buffer(&png);
        const QImage small =
            m_picture.scaled(kPictureSize, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        QImage opaque(small.size(), QImage::Format_RGB32);
        opaque.fill(kBehindPicture);
        QPainter(&opaque).drawImage(0, 0, small);
        opaque.save(&buffer, "PNG");
        m_picture = {};
        try {
            m_file.PutPicture(png);
        } catch (const CorvexMaterial::Error&) {
            // The edits are there without it.
        }
    }

    const std::string m_folder;
    const Trouble m_trouble;

    std::mutex m_mutex;  // of the following
    std::condition_variable m_wake;
    std::condition_variable m_idle;
    Work m_next;
    std::vector<ShapeState> m_told;  ///< as the window told of them last
    JournalAround m_toldAround;
    std::vector<char> m_waits;  ///< whether a place is among those of `m_next`
    bool m_isBusy = false;
    bool m_isHurried = false;
    bool m_isEnding = false;
    bool m_isLeft = false;

    // The thread's own.
    JournalHead m_head;
    std::optional<JournalWriting> m_writing;
    JournalEdits m_edits;
    std::map<std::size_t, EditedShape> m_changed;  ///< other than in the base
    std::map<std::size_t, EditedShape> m_unwritten;
    bool m_isWritten = true;  ///< all of it is
    JournalFile m_file;
    bool m_isAnother = false;  ///< than what the file holds
    QImage m_picture;
    Clock::time_point m_pictureWritten;
    bool m_isInTrouble = false;
    bool m_isUnfinished = false;

    std::thread m_thread;
};

EditJournal::EditJournal(const std::string& stateFolder, Trouble trouble)
    : m_writer(std::make_unique<Writer>(RecoveryFolder(stateFolder), std::move(trouble)))
{
}

EditJournal::~EditJournal() = default;

void EditJournal::Begin(JournalBase base, std::string name, const StudioScene::Shapes& shapes,
                        JournalAround around)
{
    m_head = {std::move(base), std::move(name), Now(), std::move(around)};
    m_writer->Begin(m_head, shapes);
}

void EditJournal::Record(const StudioScene::Shapes& shapes, const JournalAround& around,
                         const Camera& camera, std::string_view what, int edits)
{
    m_writer->Take(m_head, shapes, around, camera, what, edits);
}

void EditJournal::Show(const QImage& picture)
{
    m_writer->Show(picture);
}

bool EditJournal::Flush(const JournalSaving& saving)
{
    return m_writer->Flush(saving);
}

void EditJournal::Leave()
{
    m_writer->Leave();
}

std::string RecoveryFolder(const std::string& stateFolder)
{
    return stateFolder + "/recovery";
}

}  // namespace studio
