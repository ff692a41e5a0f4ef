#include "RenderService.h"

#include "GlContext.h"
#include "Renderer.h"
#include "TextureCache.h"

#include <QMetaObject>
#include <QObject>

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <future>
#include <map>
#include <mutex>
#include <new>
#include <optional>
#include <thread>

namespace studio {
namespace {

using CorvexMaterial::Error;
using CorvexMaterial::Status;

struct Job {
    std::optional<RenderService::ViewId> view;  ///< none: somebody waits for it
    Frame frame;
    std::function<void(RenderResult)> deliver;  ///< runs on the render thread
};

}  // namespace

struct RenderService::Parts {
    using RequestId = std::uint64_t;

    explicit Parts(std::unique_ptr<GlContextProvider> contexts) : provider(std::move(contexts)) {}

    void Run();
    std::optional<Job> NextJob(std::unique_lock<std::mutex>& lock);
    RenderResult DrawSafely(const Job& job);
    QImage Draw(const Job& job);
    void Enqueue(Job job);
    void Deliver(ViewId view, RequestId request, const RenderResult& result);

    std::unique_ptr<GlContextProvider> provider;
    TextureCache textures;

    std::mutex mutex;
    std::condition_variable wake;
    std::deque<Job> waiting;
    bool stopping = false;
    bool resetWanted = false;

    // User-interface thread only.
    QObject receiver;
    std::map<ViewId, std::map<RequestId, Callback>> callbacks;
    RequestId lastRequest = 0;
    std::function<void(Frame&)> complete;
    ViewId lastView = 0;

    // Render thread only.
    std::unique_ptr<Renderer> renderer;

    std::thread thread;
};

void RenderService::Parts::Run()
{
    std::unique_lock lock(mutex);
    while (const std::optional<Job> job = NextJob(lock)) {
        const bool reset = std::exchange(resetWanted, false);
        lock.unlock();
        if (reset) {
            renderer.reset();
        }
        job->deliver(DrawSafely(*job));
        lock.lock();
    }
    renderer.reset();
}

std::optional<Job> RenderService::Parts::NextJob(std::unique_lock<std::mutex>& lock)
{
    wake.wait(lock, [this] { return stopping || !waiting.empty(); });
    if (stopping) {
        return std::nullopt;
    }
    std::optional<Job> job(std::move(waiting.front()));
    waiting.pop_front();
    return job;
}

RenderResult RenderService::Parts::DrawSafely(const Job& job)
{
    try {
        return {Draw(job), Status::Success, {}};
    } catch (const Error& error) {
        if (error.Code() == Status::GraphicsFailed) {
            renderer.reset();  // the device may have been lost; the next frame starts afresh
        }
        return {{}, error.Code(), error.what()};
    } catch (const std::bad_alloc&) {
        return {{}, Status::OutOfMemory, "There is not enough memory to draw the picture."};
    } catch (const std::exception& error) {
        return {{}, Status::Failed, error.what()};
    }
}

QImage RenderService::Parts::Draw(const Job& job)
{
    if (!renderer) {
        renderer = std::make_unique<Renderer>(provider->Create());
    }
    const bool wait = !job.view;
    return renderer->Draw(job.frame, [&](const std::string& path) {
        return wait ? textures.Await(path) : textures.Request(path);
    });
}

void RenderService::Parts::Enqueue(Job job)
{
    {
        const std::lock_guard lock(mutex);
        const auto same = std::find_if(waiting.begin(), waiting.end(), [&](const Job& other) {
            return job.view && other.view == job.view;
        });
        if (same != waiting.end()) {
            *same = std::move(job);  // keeps its place, so that no view starves another
        } else if (job.view) {
            waiting.push_back(std::move(job));
        } else {
            waiting.push_front(std::move(job));
        }
    }
    wake.notify_one();
}

void RenderService::Parts::Deliver(ViewId view, RequestId request, const RenderResult& result)
{
    const auto found = callbacks.find(view);
    if (found == callbacks.end()) {
        return;
    }
    auto& asked = found->second;
    const auto own = asked.find(request);
    if (own == asked.end()) {
        return;
    }
    const Callback callback = std::move(own->second);  // may remove its view
    // Earlier requests were replaced and are never drawn.
    asked.erase(asked.begin(), std::next(own));
    callback(result);
}

RenderService::RenderService() : RenderService(MakeGlContextProvider()) {}

RenderService::RenderService(std::unique_ptr<GlContextProvider> provider)
    : m_parts(std::make_unique<Parts>(std::move(provider)))
{
    m_parts->thread = std::thread([parts = m_parts.get()] { parts->Run(); });
}

RenderService::~RenderService()
{
    {
        const std::lock_guard lock(m_parts->mutex);
        m_parts->stopping = true;
    }
    m_parts->wake.notify_one();
    m_parts->thread.join();
}

RenderService::ViewId RenderService::AddView()
{
    const ViewId view = ++m_parts->lastView;
    m_parts->callbacks[view];
    return view;
}

void RenderService::RemoveView(ViewId view)
{
    Cancel(view);
    m_parts->callbacks.erase(view);
}

void RenderService::Cancel(ViewId view)
{
    m_parts->callbacks[view].clear();
    const std::lock_guard lock(m_parts->mutex);
    std::erase_if(m_parts->waiting, [&](const Job& job) { return job.view == view; });
}

void RenderService::SetCompletion(std::function<void(Frame&)> complete)
{
    m_parts->complete = std::move(complete);
}

void RenderService::Request(ViewId view, Frame frame, Callback callback)
{
    Parts* parts = m_parts.get();
    const auto found = parts->callbacks.find(view);
    if (found == parts->callbacks.end()) {
        return;
    }
    const Parts::RequestId request = ++parts->lastRequest;
    found->second[request] = std::move(callback);
    if (parts->complete) {
        parts->complete(frame);
    }
    parts->Enqueue(
        {view, std::move(frame), [parts, view, request](const RenderResult& result) {
             QMetaObject::invokeMethod(
                 &parts->receiver,
                 [parts, view, request, result] { parts->Deliver(view, request, result); },
                 Qt::QueuedConnection);
         }});
}

QImage RenderService::DrawNow(Frame frame)
{
    std::promise<RenderResult> promise;
    std::future<RenderResult> future = promise.get_future();
    m_parts->Enqueue({std::nullopt, std::move(frame),
                      [&promise](RenderResult result) { promise.set_value(std::move(result)); }});
    const RenderResult result = future.get();
    if (result.status != Status::Success) {
        throw Error(result.status, result.error);
    }
    return result.image;
}

TextureCache& RenderService::Textures() const
{
    return m_parts->textures;
}

void RenderService::ResetDevice()
{
    const std::lock_guard lock(m_parts->mutex);
    m_parts->resetWanted = true;
}

}  // namespace studio
