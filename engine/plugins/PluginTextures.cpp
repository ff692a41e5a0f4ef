#include "PluginTextures.h"

#include "CheckedPlugin.h"
#include "DropOldest.h"
#include "PluginFolder.h"
#include <CorvexMaterial/ErrorReport.h>
#include <CorvexMaterial/Status.h>

#include <algorithm>
#include <tuple>
#include <utility>

namespace studio {
namespace {

using namespace std::chrono_literals;

// A drag moves on well within this, so that full sizes are left to the values that stay.
constexpr auto kRest = 150ms;
// What a preview takes when nothing else is going on: worth waiting for, since the picture that
// would be drawn without it is thrown away.
constexpr auto kPatience = 12ms;
constexpr double kPreviewSeconds = 0.02;
constexpr int kLeastPreview = 64;
// Those that failed have no pixels, but many of them cost something too.
constexpr std::int64_t kEntryBytes = 4096;
constexpr qsizetype kPixelBytes = 5;  ///< four of colour and one of height

}  // namespace

std::int64_t PluginTextures::Entry::Bytes() const
{
    return kEntryBytes + texture.color.sizeInBytes() + texture.bump.sizeInBytes();
}

bool PluginTextures::Id::operator<(const Id& other) const
{
    return std::tie(plugin, values) < std::tie(other.plugin, other.values);
}

PluginTextures::PluginTextures(const PluginFolder& plugins, QObject* parent)
    : PluginTextures(plugins, Sizes{}, parent)
{
}

PluginTextures::PluginTextures(const PluginFolder& plugins, Sizes sizes, QObject* parent)
    : QObject(parent), m_plugins(plugins), m_sizes(sizes), m_worker([this] { Work(); })
{
}

PluginTextures::~PluginTextures()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
        m_cancelled = true;
    }
    m_wake.notify_all();
    m_worker.join();
}

PluginTextures::Id PluginTextures::IdOf(const std::string& plugin,
                                        const std::vector<float>& values) const
{
    const auto found = m_plugins.Find(plugin);
    return {found, found == nullptr ? std::vector<float>() : found->Fitted(values)};
}

PluginTexture PluginTextures::Find(const std::string& plugin, const std::vector<float>& values)
{
    const Id id = IdOf(plugin, values);
    if (id.plugin == nullptr) {
        return {};
    }
    Lock lock(m_mutex);
    Entry& entry = m_entries[id];
    entry.lastUse = ++m_asks;
    entry.round = m_round;
    if (!entry.failed && entry.stage != Stage::Full) {
        Want({id, entry.stage == Stage::None ? Stage::Preview : Stage::Full}, lock);
    }
    const Entry& now = m_entries[id];
    return now.stage == Stage::None && !now.failed ? m_latest[id.plugin].texture : now.texture;
}

void PluginTextures::EndRound()
{
    const std::lock_guard lock(m_mutex);
    Evict();
    ++m_round;
}

bool PluginTextures::IsWanted(const Job& job) const
{
    const auto isSame = [&](const Job& other) {
        return other.stage == job.stage && other.id == job.id;
    };
    return isSame(m_running) || std::any_of(m_wanted.begin(), m_wanted.end(), isSame);
}

void PluginTextures::Want(const Job& job, Lock& lock)
{
    if (IsWanted(job)) {
        return;
    }
    const bool isIdle = m_running.stage == Stage::None;
    if (job.stage == Stage::Preview) {
        // Values are on the move. What this drops and is visible still will be asked for again.
        std::erase_if(m_wanted, [&](const Job& other) {
            return other.stage == Stage::Full || other.id.plugin == job.id.plugin;
        });
        m_cancelled = m_running.stage == Stage::Full;
        m_restless = Clock::now();
    }
    m_wanted.push_back(job);
    m_wake.notify_all();
    if (job.stage == Stage::Preview && isIdle) {
        m_drawn.wait_for(lock, kPatience, [&] { return !IsWanted(job); });
    }
}

bool PluginTextures::TakeJob()
{
    const bool isCalm = Clock::now() >= m_restless + kRest;
    const auto next = std::find_if(m_wanted.rbegin(), m_wanted.rend(), [&](const Job& job) {
        return job.stage == Stage::Preview || isCalm;
    });
    if (next == m_wanted.rend()) {
        return false;
    }
    m_running = *next;
    m_wanted.erase(std::next(next).base());
    return true;
}

void PluginTextures::Work()
{
    Lock lock(m_mutex);
    while (!m_stopping) {
        if (TakeJob()) {
            Draw(lock);
        } else if (m_wanted.empty()) {
            m_wake.wait(lock);
        } else {
            m_wake.wait_until(lock, m_restless + kRest);
        }
    }
}

bool PluginTextures::IsVisible(const Entry& entry) const
{
    return entry.round + kKeptRounds > m_round;
}

/// So that all that is visible fits: dropping some of it would make the views ask without end.
int PluginTextures::FullSize() const
{
    const qsizetype visible =
        std::count_if(m_entries.begin(), m_entries.end(),
                      [this](const auto& item) { return IsVisible(item.second); });
    int size = m_sizes.full;
    while (size > kLeastPreview && visible * kPixelBytes * size * size > m_sizes.bytes) {
        size /= 2;
    }
    return size;
}

int PluginTextures::SizeOf(const Job& job) const
{
    if (job.stage == Stage::Full) {
        return FullSize();
    }
    const auto latest = m_latest.find(job.id.plugin);
    const double cost = latest == m_latest.end() ? 0.0 : latest->second.secondsPerPixel;
    int size = std::min(m_sizes.preview, FullSize());
    while (size > kLeastPreview && cost * size * size > kPreviewSeconds) {
        size /= 2;
    }
    return size;
}

void PluginTextures::Draw(Lock& lock)
{
    const Job job = m_running;
    const int size = SizeOf(job);
    m_cancelled = m_stopping;
    lock.unlock();
    PluginTexture texture;
    QString message;
    const Clock::time_point begin = Clock::now();
    try {
        texture = job.id.plugin->Draw(job.id.values, size, [this] { return m_cancelled.load(); });
    } catch (...) {
        message = QString::fromStdString(
            CorvexMaterial::Describe(std::current_exception(), {}).description);
    }
    lock.lock();
    m_running = {};
    if (!message.isEmpty()) {
        Fail(job, message);
    } else if (!texture.color.isNull()) {
        const std::chrono::duration<double> taken = Clock::now() - begin;
        m_latest[job.id.plugin].secondsPerPixel = taken.count() / size / size;
        texture.key = ++m_keys;
        Keep(job, std::move(texture));
    }
    m_drawn.notify_all();
}

void PluginTextures::Keep(const Job& job, PluginTexture texture)
{
    Entry& entry = m_entries[job.id];
    entry.texture = std::move(texture);
    entry.stage = job.stage;
    m_latest[job.id.plugin].texture = entry.texture;
    QMetaObject::invokeMethod(this, &PluginTextures::Ready, Qt::QueuedConnection);
}

void PluginTextures::Fail(const Job& job, const QString& message)
{
    m_entries[job.id].failed = true;
    if (!std::exchange(m_latest[job.id.plugin].isReported, true)) {
        QMetaObject::invokeMethod(
            this, [this, message] { Q_EMIT Refused(message); }, Qt::QueuedConnection);
    }
}

/// What is visible stays, however much it is.
void PluginTextures::Evict()
{
    const auto isHidden = [this](const Entry& entry) { return !IsVisible(entry); };
    if (DropOldest(m_entries, m_sizes.bytes, isHidden) > m_sizes.bytes) {
        ShrinkVisible();
    }
}

/// The views ask for these again, and get them at the size that fits.
void PluginTextures::ShrinkVisible()
{
    const int size = FullSize();
    for (auto& [id, entry] : m_entries) {
        if (entry.texture.color.width() > size) {
            entry.stage = Stage::Preview;
        }
    }
}

PluginTexture PluginTextures::Produce(const std::string& plugin, const std::vector<float>& values)
{
    const Id id = IdOf(plugin, values);
    if (id.plugin == nullptr) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::InvalidArgument,
                                    "There is no plug-in \"" + plugin + "\".");
    }
    Lock lock(m_mutex);
    const auto known = m_entries.find(id);
    if (known != m_entries.end() && known->second.texture.color.width() == m_sizes.full) {
        known->second.lastUse = ++m_asks;
        return known->second.texture;
    }
    lock.unlock();
    PluginTexture texture = id.plugin->Draw(id.values, m_sizes.full, [] { return false; });
    lock.lock();
    texture.key = ++m_keys;
    if (FullSize() == m_sizes.full) {
        Keep({id, Stage::Full}, texture);
        m_entries[id].lastUse = ++m_asks;
        Evict();
    }
    return texture;
}

}  // namespace studio
