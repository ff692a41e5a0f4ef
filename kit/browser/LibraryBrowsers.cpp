#include "LibraryBrowsers.h"

namespace studio {

LibraryBrowsers::LibraryBrowsers(OpenLibrary materials, OpenLibrary textures,
                                 LibraryBrowser::FieldNames fieldNames, UserMarks& marks)
    : m_materials(std::move(materials)), m_textures(std::move(textures)),
      m_fieldNames(std::move(fieldNames)), m_marks(marks)
{
}

CorvexEditport::Editport* LibraryBrowsers::CreateEditport(QWidget* parent,
                                                          CorvexEditport::BrowserKind kind)
{
    const LibraryKind shown = kind == CorvexEditport::BrowserKind::Materials
                                  ? LibraryKind::Materials
                                  : LibraryKind::Textures;
    auto* browser = new LibraryBrowser([this, shown] { return Open(shown); }, shown, m_fieldNames,
                                       m_marks, parent);
    connect(browser, &LibraryBrowser::FavouriteWanted, this,
            [this, shown](const auto& ids) { Q_EMIT FavouriteWanted(shown, ids); });
    connect(
        browser, &LibraryBrowser::RatingWanted, this,
        [this, shown](const auto& ids, int rating) { Q_EMIT RatingWanted(shown, ids, rating); });
    connect(browser, &LibraryBrowser::MaterialDropped, this, &LibraryBrowsers::MaterialDropped);
    connect(browser, &LibraryBrowser::FilesDropped, this, &LibraryBrowsers::FilesDropped);
    connect(browser, &LibraryBrowser::CopyDropped, this, &LibraryBrowsers::CopyDropped);
    connect(browser, &LibraryBrowser::PictureMissing, this, &LibraryBrowsers::PictureMissing);
    connect(browser, &LibraryBrowser::Used, this, &LibraryBrowsers::Used);
    connect(browser, &LibraryBrowser::RenameWanted, this,
            [this, shown](std::int64_t id, const QString& name) {
                Q_EMIT RenameWanted(shown, id, name);
            });
    connect(browser, &LibraryBrowser::DeletePressed, this,
            [this, shown] { Q_EMIT DeletePressed(shown); });
    connect(browser, &LibraryBrowser::MenuWanted, this, [this, browser](QPoint globalPosition) {
        Q_EMIT MenuWanted(*browser, globalPosition);
    });
    connect(browser, &LibraryBrowser::Message, this, &LibraryBrowsers::Message);
    std::erase(m_browsers, nullptr);
    m_browsers.emplace_back(browser);
    return browser;
}

LibraryFile* LibraryBrowsers::Open(LibraryKind kind) const
{
    return kind == LibraryKind::Materials ? m_materials() : m_textures();
}

std::vector<LibraryBrowser*> LibraryBrowsers::Of(LibraryKind kind) const
{
    std::vector<LibraryBrowser*> browsers;
    for (const auto& browser : m_browsers) {
        if (browser != nullptr && browser->Kind() == kind) {
            browsers.push_back(browser);
        }
    }
    return browsers;
}

void LibraryBrowsers::ShowMarks()
{
    for (const auto& browser : m_browsers) {
        if (browser != nullptr) {
            browser->ShowMarks();
        }
    }
}

void LibraryBrowsers::Refresh(LibraryKind kind)
{
    LibraryFile* file = Open(kind);
    if (file == nullptr) {
        return;
    }
    const std::vector<LibraryBrowser*> browsers = Of(kind);
    std::vector<std::optional<EntryId>> marked;
    for (LibraryBrowser* browser : browsers) {
        const std::int32_t index = browser->SelectedIndex();
        marked.push_back(index < 0 ? std::nullopt : std::optional(file->IdAt(index)));
    }
    if (!file->Refresh()) {
        return;
    }
    for (std::size_t i = 0; i < browsers.size(); ++i) {
        browsers[i]->Reread(file->Count(), marked[i] ? file->IndexOf(*marked[i]) : std::nullopt);
    }
}

void LibraryBrowsers::ShowFollowed(LibraryKind kind)
{
    const LibraryFile* file = Open(kind);
    for (LibraryBrowser* browser : Of(kind)) {
        if (file != nullptr) {
            browser->Reread(file->Count(), std::nullopt);
        }
    }
}

void LibraryBrowsers::ShowPicture(LibraryKind kind, EntryId id)
{
    for (LibraryBrowser* browser : Of(kind)) {
        browser->ShowPicture(id);
    }
}

void LibraryBrowsers::ShowAgain(LibraryKind kind, EntryId revealed)
{
    const LibraryFile* file = Open(kind);
    if (file == nullptr) {
        return;
    }
    const auto index = file->IndexOf(revealed);
    for (LibraryBrowser* browser : Of(kind)) {
        browser->Reread(file->Count());
        if (index) {
            browser->Reveal(*index);
        }
    }
}

}  // namespace studio
