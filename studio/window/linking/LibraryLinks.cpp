#include "LibraryLinks.h"

#include "LibraryBrowser.h"
#include "LibraryDesk.h"
#include "LinkedEntry.h"
#include "MaterialLink.h"
#include "MaterialNames.h"
#include "PanelLibraries.h"
#include "ScenePane.h"
#include "SettingNames.h"
#include "SqliteMaterialLibrary.h"
#include "StoredPath.h"
#include "StudioHost.h"
#include "StudioSettings.h"
#include "WindowMessages.h"
#include <CorvexMaterial/PlainText.h>
#include <CorvexMaterial/Status.h>

#include <QFileInfo>
#include <QGuiApplication>
#include <QMenu>
#include <QScopedValueRollback>

#include <algorithm>
#include <set>

namespace studio {
namespace {

QString FileName(const std::string& path)
{
    return QFileInfo(QString::fromStdString(path)).fileName();
}

}  // namespace

LibraryLinks::LibraryLinks(const Parts& parts) : m_parts(parts)
{
    m_parts.link.SetLinkChoice([this]() -> std::shared_ptr<const LibraryLink> {
        const SqliteMaterialLibrary& library = m_parts.host.Materials();
        return m_linksNext || IsRule() ? LinkTo(library.LastTaken(), {}) : nullptr;
    });
    connect(&m_parts.libraries, &PanelLibraries::LinkWanted, this, &LibraryLinks::ApplyLinked);
    connect(&m_parts.libraries.History(), &QUndoStack::indexChanged, this,
            &LibraryLinks::LookAgain);
    connect(&m_parts.scene, &ScenePane::ShapesReplaced, this, &LibraryLinks::LookAgain);
}

LibraryLinks::~LibraryLinks()
{
    m_parts.link.SetLinkChoice({});
}

bool LibraryLinks::IsRule() const
{
    return m_parts.host.Settings().Number(kLinkSetting, 0) != 0;
}

std::shared_ptr<const LibraryLink> LibraryLinks::LinkTo(const EntryOrigin& origin,
                                                        const std::string& name) const
{
    // The scene's own materials are a library too, but no file.
    if (origin.id == 0 || !QFileInfo::exists(QString::fromStdString(origin.library))) {
        return nullptr;
    }
    auto link = std::make_shared<LibraryLink>();
    link->library = origin.library;
    link->entry = origin.id;
    link->name = name;
    link->revision = origin.revision;
    return link;
}

void LibraryLinks::Put(const ShapeList& shapes, const DroppedMaterial& dropped)
{
    const bool isOther = QGuiApplication::keyboardModifiers().testFlag(Qt::ShiftModifier);
    m_parts.link.Put(shapes, dropped.material, dropped.name,
                     isOther != IsRule() ? LinkTo(dropped.origin, dropped.name) : nullptr);
}

void LibraryLinks::ApplyLinked(LibraryBrowser& browser)
{
    const QScopedValueRollback linking(m_linksNext, true);
    browser.ChooseSelected();
}

const LibraryLink* LibraryLinks::LinkOf(const StudioShape& shape)
{
    const auto& identity = shape.Applied().identity;
    return identity == nullptr ? nullptr : identity->link.get();
}

bool LibraryLinks::HasChanges(const StudioShape& shape)
{
    const LibraryLink* link = LinkOf(shape);
    return link != nullptr && link->taken != shape.Material();
}

LinkState LibraryLinks::StateOf(const LibraryLink& link)
{
    const auto [known, isNew] =
        m_revisions.emplace(std::pair(link.library, link.entry), std::nullopt);
    if (isNew) {
        try {
            known->second = ReadLinkedEntry(link.library, link.entry, link.name).origin.revision;
        } catch (const CorvexMaterial::Error&) {
            // Told when the user wants something of it.
        }
    }
    if (!known->second) {
        return LinkState::Missing;
    }
    return *known->second == link.revision ? LinkState::Current : LinkState::Newer;
}

QString LibraryLinks::TextOf(const StudioShape& shape)
{
    const LibraryLink* link = LinkOf(shape);
    if (link == nullptr) {
        return {};
    }
    QString text =
        tr("Linked to %1 in %2").arg(QString::fromStdString(link->name), FileName(link->library));
    if (HasChanges(shape)) {
        text += tr(", with changes of its own");
    }
    switch (StateOf(*link)) {
    case LinkState::Current:
        break;
    case LinkState::Newer:
        text += tr("; the library has a newer one");
        break;
    case LinkState::Missing:
        text += tr("; it is not there any more");
        break;
    }
    return text;
}

LibraryLinks::Linked LibraryLinks::LinkedOf(const ShapeList& shapes)
{
    Linked linked;
    std::set<const SceneMaterial*> known;
    for (const auto& shape : shapes) {
        const LibraryLink* link = LinkOf(*shape);
        if (link != nullptr && known.insert(shape->Applied().identity.get()).second) {
            linked.emplace_back(shape, link);
        }
    }
    return linked;
}

ShapeList LibraryLinks::SharersOf(const std::shared_ptr<StudioShape>& shape) const
{
    return Sharers({shape}, m_parts.scene.Scene().All());
}

void LibraryLinks::AddChanges(std::vector<ShapeChange>& changes,
                              const std::shared_ptr<StudioShape>& shape,
                              const std::shared_ptr<const LibraryLink>& link,
                              const Edit& edit) const
{
    std::map<const CorvexSG::GatheredMaterial*, std::shared_ptr<const CorvexSG::GatheredMaterial>>
        edited;
    for (ShapeChange& linked : LinkedTo(link, {shape}, m_parts.scene.Scene().All())) {
        ShapeChange change = MaterialLink::PutOf(linked.shape, edit(linked.shape->Material()));
        auto& gathered = edited[change.before.gathered.get()];
        gathered = gathered == nullptr ? change.after.gathered : gathered;
        change.after.gathered = gathered;
        change.after.identity = linked.after.identity;
        changes.push_back(std::move(change));
    }
}

void LibraryLinks::Update(const ShapeList& shapes)
{
    std::vector<ShapeChange> changes;
    m_parts.messages.Telling([&] {
        for (const auto& [shape, link] : LinkedOf(shapes)) {
            const LinkedEntry now = ReadLinkedEntry(link->library, link->entry, link->name);
            auto fresh = std::make_shared<LibraryLink>(LibraryLink{
                link->library, now.origin.id, now.name, now.origin.revision, now.material});
            AddChanges(changes, shape, fresh,
                       [&taken = link->taken, &now](const CorvexDB::udtMaterial& material) {
                           return Updated(material, taken, now.material);
                       });
        }
    });
    m_parts.link.Make(std::move(changes));
}

void LibraryLinks::Revert(const ShapeList& shapes)
{
    std::vector<ShapeChange> changes;
    for (const auto& [shape, link] : LinkedOf(shapes)) {
        AddChanges(changes, shape, shape->Applied().identity->link,
                   [&taken = link->taken](const CorvexDB::udtMaterial&) { return taken; });
    }
    m_parts.link.Make(std::move(changes));
}

void LibraryLinks::Unlink(const ShapeList& shapes)
{
    std::vector<ShapeChange> changes;
    for (const auto& linked : LinkedOf(shapes)) {
        for (ShapeChange& change : LinkedTo(nullptr, {linked.first}, m_parts.scene.Scene().All())) {
            changes.push_back(std::move(change));
        }
    }
    m_parts.link.Make(std::move(changes));
}

std::optional<LibraryLink> LibraryLinks::Pushed(const StudioShape& shape, const LibraryLink& link)
{
    const LinkedEntry now = ReadLinkedEntry(link.library, link.entry, link.name);
    const bool isNewer = now.origin.revision != link.revision;
    if (isNewer &&
        !m_parts.messages.Ask(tr("%1 in %2 has been changed since it was taken. Replace "
                                 "it all the same?")
                                  .arg(QString::fromStdString(now.name), FileName(link.library)))) {
        return std::nullopt;
    }
    if (!m_parts.libraries.Replace(now.origin, {now.name, shape.Material(), {}})) {
        return std::nullopt;
    }
    return LibraryLink{link.library, now.origin.id, now.name,
                       ReadLinkedEntry(link.library, now.origin.id, now.name).origin.revision,
                       shape.Material()};
}

void LibraryLinks::PushBack(const ShapeList& shapes)
{
    std::vector<ShapeChange> changes;
    m_parts.messages.Telling([&] {
        for (const auto& [shape, link] : LinkedOf(shapes)) {
            if (auto pushed = Pushed(*shape, *link)) {
                AddChanges(changes, shape, std::make_shared<LibraryLink>(*std::move(pushed)),
                           [](const CorvexDB::udtMaterial& material) { return material; });
            }
        }
    });
    m_parts.link.Make(std::move(changes));
}

void LibraryLinks::AddTo(QMenu& menu, const ShapeList& shapes)
{
    const Linked linked = LinkedOf(shapes);
    const bool isNewer = std::ranges::any_of(
        linked, [this](const auto& each) { return StateOf(*each.second) != LinkState::Current; });
    const bool hasChanges =
        std::ranges::any_of(linked, [](const auto& each) { return HasChanges(*each.first); });
    const auto add = [&](const QString& text, const QString& tip, bool isOfUse,
                         void (LibraryLinks::*act)(const ShapeList&)) {
        QAction* action = menu.addAction(text, this, [this, act, shapes] { (this->*act)(shapes); });
        action->setStatusTip(tip);
        action->setEnabled(isOfUse);
    };
    add(tr("U&pdate"), tr("Takes what the library has now; what was changed here stays"), isNewer,
        &LibraryLinks::Update);
    add(tr("Re&vert"), tr("Takes back what was changed here"), hasChanges, &LibraryLinks::Revert);
    add(tr("Push &Back"), tr("Puts what was changed here into the library"), hasChanges,
        &LibraryLinks::PushBack);
    add(tr("U&nlink"), tr("Keeps the material as it is, without the library"), !linked.empty(),
        &LibraryLinks::Unlink);
}

void LibraryLinks::FillWhenOpened(QMenu& menu)
{
    connect(&menu, &QMenu::aboutToShow, this, [this, &menu] {
        menu.clear();
        AddTo(menu, m_parts.scene.Selected().All());
    });
}

void LibraryLinks::LookAgain()
{
    m_revisions.clear();
    Q_EMIT Changed();
}

}  // namespace studio
