#include "SceneMaterials.h"

#include "LibraryBrowsers.h"
#include "SqliteMaterialLibrary.h"
#include "Thumbnailer.h"
#include <CorvexMaterial/Status.h>

#include <algorithm>
#include <unordered_map>

namespace studio {

std::vector<SceneMaterialUse> MaterialUsesOf(const StudioScene::Shapes& shapes)
{
    std::vector<SceneMaterialUse> uses;
    std::unordered_map<const void*, std::size_t> places;
    for (const auto& shape : shapes) {
        const AppliedMaterial& applied = shape->Applied();
        const void* const identity = applied.identity != nullptr
                                         ? static_cast<const void*>(applied.identity.get())
                                         : applied.gathered.get();
        const auto [place, isNew] = places.try_emplace(identity, uses.size());
        if (isNew) {
            uses.push_back({identity,
                            applied.identity != nullptr ? applied.identity->name : std::string(),
                            applied.gathered, 0});
        }
        ++uses[place->second].shapes;
    }
    return uses;
}

SceneMaterials::SceneMaterials(Parts parts, QObject* parent)
    : QObject(parent), m_parts(std::move(parts))
{
    // While a slider is pulled no picture is worth drawing.
    constexpr std::chrono::milliseconds kUntilDrawn{120};
    m_followSoon.setSingleShot(true);
    m_drawSoon.setSingleShot(true);
    m_drawSoon.setInterval(kUntilDrawn);
    connect(&m_followSoon, &QTimer::timeout, this, [this] {
        if (IsShown() && Follow()) {
            m_parts.browsers.ShowFollowed(LibraryKind::Materials);
        }
    });
    connect(&m_drawSoon, &QTimer::timeout, this, &SceneMaterials::DrawNext);
    connect(&m_parts.browsers, &LibraryBrowsers::PictureMissing, this, [this](std::int64_t id) {
        if (std::ranges::find(m_wanted, id) == m_wanted.end()) {
            m_wanted.push_back(id);
        }
        if (!m_drawSoon.isActive()) {
            m_drawSoon.start();
        }
    });
    m_parts.library.SetSceneLibrary(&m_scene, [this] { Follow(); });
    for (LibraryBrowser* browser : m_parts.browsers.Of(LibraryKind::Materials)) {
        browser->SetUsers([this](EntryId id) { return UsersOf(id); });
    }
}

SceneMaterials::~SceneMaterials()
{
    m_parts.library.SetSceneLibrary(nullptr, {});
    for (LibraryBrowser* browser : m_parts.browsers.Of(LibraryKind::Materials)) {
        browser->SetUsers({});
    }
}

bool SceneMaterials::IsShown()
{
    return m_parts.library.File() == &m_scene.File();
}

QString SceneMaterials::UsersOf(EntryId id) const
{
    const SceneMaterialUse* use = m_scene.UseOf(id);
    return tr("%Ln shape(s)", nullptr, use != nullptr ? use->shapes : 0);
}

void SceneMaterials::FollowSoon()
{
    if (IsShown()) {
        m_followSoon.start();
    }
}

bool SceneMaterials::Follow()
{
    return m_scene.Follow(MaterialUsesOf(m_parts.scene.All()), m_parts.fieldNames());
}

void SceneMaterials::DrawNext()
{
    constexpr std::chrono::milliseconds kPause{1};
    if (m_wanted.empty() || !IsShown()) {
        m_wanted.clear();
        return;
    }
    const EntryId id = m_wanted.back();
    m_wanted.pop_back();
    if (const SceneMaterialUse* use = m_scene.UseOf(id); use != nullptr) {
        const std::string png = m_parts.thumbnails.PngIfPossible(use->material->material);
        if (!png.empty()) {
            m_scene.SetPicture(id, png);
            m_parts.browsers.ShowPicture(LibraryKind::Materials, id);
        }
    }
    if (!m_wanted.empty()) {
        QTimer::singleShot(kPause, this, &SceneMaterials::DrawNext);
    }
}

}  // namespace studio
