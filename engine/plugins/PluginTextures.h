#pragma once

#include "PluginTexture.h"

#include <QObject>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace studio {

class CheckedPlugin;
class PluginFolder;

/// The textures of plug-in materials: each drawn once per change of values, in a thread of its own,
/// small at first and large once the values have come to rest.
///
/// Views call `Find` for everything they show whenever they put a frame together, then `EndRound`,
/// and draw again on `Ready`. So what is visible is asked for again and again, and what nobody asks
/// for any more is never finished.
class PluginTextures : public QObject {
    Q_OBJECT

public:
    struct Sizes {
        int preview = 256;  ///< pixels of a side, while values change; less for a slow plug-in
        int full = 1024;    ///< less where so many are visible that they would not fit
        qsizetype bytes = qsizetype{128} * 1024 * 1024;  ///< of pixels, kept in all
    };

    /// Two views take turns, and each of them draws again for smooth edges.
    static constexpr std::uint64_t kKeptRounds = 4;

    explicit PluginTextures(const PluginFolder& plugins, QObject* parent = nullptr);
    /// The folder outlives this object.
    PluginTextures(const PluginFolder& plugins, Sizes sizes, QObject* parent = nullptr);
    ~PluginTextures() override;

    /// The best texture there is for these values; never waits long. Until a first one is drawn,
    /// the latest of the same plug-in stands in for it. Empty for a plug-in that is unknown or
    /// failed. User-interface thread only.
    [[nodiscard]] PluginTexture Find(const std::string& plugin, const std::vector<float>& values);

    /// A view has asked for all it shows. What the latest rounds did not ask for may be dropped
    /// now.
    void EndRound();

    /// Waits for the texture at full size, for pictures that are drawn once. Errors: Failed, naming
    /// the file; InvalidArgument for an unknown plug-in.
    [[nodiscard]] PluginTexture Produce(const std::string& plugin,
                                        const std::vector<float>& values);

Q_SIGNALS:
    /// A texture became better than the one that `Find` gave last.
    void Ready();
    /// A plug-in failed to draw; once per plug-in.
    void Refused(const QString& message);

private:
    enum class Stage { None, Preview, Full };
    struct Id {
        std::shared_ptr<const CheckedPlugin> plugin;
        std::vector<float> values;

        bool operator<(const Id& other) const;
        bool operator==(const Id& other) const = default;
    };
    struct Entry {
        PluginTexture texture;
        Stage stage = Stage::None;
        bool failed = false;
        std::uint64_t lastUse = 0;
        std::uint64_t round = 0;  ///< of the views, in which it was asked for last

        [[nodiscard]] std::int64_t Bytes() const;
    };
    struct Latest {
        PluginTexture texture;
        double secondsPerPixel = 0.0;
        bool isReported = false;
    };
    struct Job {
        Id id;
        Stage stage = Stage::None;
    };
    using Lock = std::unique_lock<std::mutex>;
    using Clock = std::chrono::steady_clock;

    [[nodiscard]] Id IdOf(const std::string& plugin, const std::vector<float>& values) const;
    void Want(const Job& job, Lock& lock);
    [[nodiscard]] bool IsWanted(const Job& job) const;
    [[nodiscard]] bool TakeJob();
    void Work();
    void Draw(Lock& lock);
    [[nodiscard]] bool IsVisible(const Entry& entry) const;
    [[nodiscard]] int FullSize() const;
    [[nodiscard]] int SizeOf(const Job& job) const;
    void Keep(const Job& job, PluginTexture texture);
    void Fail(const Job& job, const QString& message);
    void Evict();
    void ShrinkVisible();

    const PluginFolder& m_plugins;
    const Sizes m_sizes;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::condition_variable m_drawn;
    std::map<Id, Entry> m_entries;
    std::map<std::shared_ptr<const CheckedPlugin>, Latest> m_latest;
    std::vector<Job> m_wanted;  ///< the last one is the most urgent
    Job m_running;
    std::atomic<bool> m_cancelled = false;
    bool m_stopping = false;
    Clock::time_point m_restless;  ///< when a new set of values came last
    std::uint64_t m_asks = 0;
    std::uint64_t m_round = kKeptRounds;
    std::uint64_t m_keys = 0;
    std::thread m_worker;
};

}  // namespace studio
