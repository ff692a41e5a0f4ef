#include "MissingTextures.h"

#include <algorithm>
#include <filesystem>
#include <map>

namespace studio {

namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

std::string Utf8(const fs::path& path)
{
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

/// The names along a path from its end, in lower case.
Names NamesFromEnd(const std::string& path)
{
    Names names(1);
    std::for_each(path.rbegin(), path.rend(), [&](char letter) {
        if (letter == '/' || letter == '\\') {
            names.emplace_back();
        } else {
            const bool upper = letter >= 'A' && letter <= 'Z';
            names.back().insert(names.back().begin(),
                                upper ? static_cast<char>(letter - 'A' + 'a') : letter);
        }
    });
    return names;
}

std::size_t CommonNames(const Names& left, const Names& right)
{
    const auto ends = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    return static_cast<std::size_t>(ends.first - left.begin());
}

struct Candidate {
    std::string path;
    std::size_t commonNames = 0;
    std::size_t depth = 0;
};

bool IsBetter(const Candidate& left, const Candidate& right)
{
    if (left.commonNames != right.commonNames) {
        return left.commonNames > right.commonNames;
    }
    // The path last, for a folder lists its files in any order.
    return left.depth != right.depth ? left.depth < right.depth : left.path < right.path;
}

struct Wanted {
    Names names;
    Candidate best;
};

class Matcher {
public:
    explicit Matcher(const std::vector<std::string>& missing)
    {
        for (const std::string& path : missing) {
            const Names names = NamesFromEnd(path);
            m_wanted[names.front()].push_back({names, {}});
            m_order.emplace_back(names.front(), m_wanted[names.front()].size() - 1);
        }
    }

    void Offer(const fs::path& file)
    {
        const std::string path = Utf8(file);
        const auto wanted = m_wanted.find(NamesFromEnd(Utf8(file.filename())).front());
        if (wanted == m_wanted.end()) {
            return;
        }
        const Names names = NamesFromEnd(path);
        for (Wanted& each : wanted->second) {
            const Candidate candidate{path, CommonNames(each.names, names), names.size()};
            if (each.best.path.empty() || IsBetter(candidate, each.best)) {
                each.best = candidate;
            }
        }
    }

    [[nodiscard]] std::string BestFor(std::size_t missing) const
    {
        const auto& [name, place] = m_order[missing];
        return m_wanted.at(name)[place].best.path;
    }

private:
    std::map<std::string, std::vector<Wanted>> m_wanted;  ///< by file name in lower case
    std::vector<std::pair<std::string, std::size_t>> m_order;
};

/// False when the search ended before the folder did.
bool OfferAllFiles(const fs::path& folder, const TextureSearch& search, Matcher& matcher)
{
    constexpr std::size_t kEntriesPerQuestion = 256;
    std::error_code error;
    fs::recursive_directory_iterator entry(folder, fs::directory_options::skip_permission_denied,
                                           error);
    std::size_t entries = 0;
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
        if (++entries > search.mostEntries) {
            return false;
        }
        if (entries % kEntriesPerQuestion == 1 && search.cancelled && search.cancelled()) {
            return false;
        }
        std::error_code gone;
        if (entry->is_directory(gone) && entry.depth() >= search.mostDepth) {
            entry.disable_recursion_pending();
        } else if (entry->is_regular_file(gone)) {
            matcher.Offer(entry->path());
        }
    }
    return !error;
}

}  // namespace

FoundTextures FindMissingTextures(const std::vector<std::string>& missing,
                                  const std::string& folder, const TextureSearch& search)
{
    Matcher matcher(missing);
    FoundTextures result;
    const fs::path start(std::u8string(folder.begin(), folder.end()));
    result.complete = OfferAllFiles(start, search, matcher);
    for (std::size_t i = 0; i < missing.size(); ++i) {
        result.replacements.push_back({missing[i], matcher.BestFor(i)});
    }
    return result;
}

}  // namespace studio
