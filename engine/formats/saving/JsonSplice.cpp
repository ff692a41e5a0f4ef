#include "JsonSplice.h"

#include "PlainNumbers.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace studio {
namespace {

constexpr std::string_view kJsonBlanks = " \t\r\n";

/// A member of an object or an element of an array, with the blanks before it; the key is empty in
/// an array.
struct Item {
    std::string key;
    std::string_view lead;     ///< blanks before it
    std::string_view heading;  ///< the key as written, the colon and the blanks around that
    std::string_view value;
    std::string_view trail;  ///< blanks behind it
};

struct Container {
    std::vector<Item> items;
    std::string_view emptiness;  ///< the blanks inside one without items
};

/// Goes over a well-formed text. Ends early rather than run beyond a damaged one.
class JsonReader {
public:
    explicit JsonReader(std::string_view text) : m_text(text) {}

    [[nodiscard]] Container Read()
    {
        Container container;
        const bool hasKeys = m_text.starts_with('{');
        m_at = 1;
        while (m_at < m_text.size()) {
            Item item;
            item.lead = Blanks();
            if (At() == '}' || At() == ']') {
                container.emptiness = item.lead;
                return container;
            }
            const std::size_t begin = m_at;
            if (hasKeys) {
                item.key = Json::parse(String()).get<std::string>();
                Blanks();
                ++m_at;  // the colon
                Blanks();
                item.heading = m_text.substr(begin, m_at - begin);
            }
            item.value = Value();
            item.trail = Blanks();
            container.items.push_back(std::move(item));
            if (At() != ',') {
                return container;
            }
            ++m_at;
        }
        return container;
    }

private:
    [[nodiscard]] char At() const { return m_at < m_text.size() ? m_text[m_at] : '\0'; }

    std::string_view Blanks()
    {
        const std::size_t begin = m_at;
        m_at = std::min(m_text.find_first_not_of(kJsonBlanks, m_at), m_text.size());
        return m_text.substr(begin, m_at - begin);
    }

    std::string_view String()
    {
        const std::size_t begin = m_at++;
        while (At() != '"' && m_at < m_text.size()) {
            m_at += At() == '\\' ? 2 : 1;
        }
        m_at = std::min(m_at + 1, m_text.size());
        return m_text.substr(begin, m_at - begin);
    }

    // By counting brackets instead of recursion: the depth is the file's choice.
    std::string_view Value()
    {
        const std::size_t begin = m_at;
        std::size_t depth = 0;
        do {
            const char letter = At();
            if (letter == '"') {
                String();
                continue;
            }
            if (letter == '{' || letter == '[') {
                ++depth;
            } else if (letter == '}' || letter == ']') {
                --depth;
            } else if (depth == 0) {
                m_at = std::min(m_text.find_first_of(",]} \t\r\n", m_at), m_text.size());
                continue;
            }
            ++m_at;
        } while (depth > 0 && m_at < m_text.size());
        return m_text.substr(begin, m_at - begin);
    }

    std::string_view m_text;
    std::size_t m_at = 0;
};

/// How a text is laid out.
struct Layout {
    std::string lineStart;  ///< before an item, with the line's end; empty where all is on one line
    std::string step;       ///< what a level is indented by
    bool airy = true;       ///< blanks after colons and commas
};

Layout Deeper(Layout layout)
{
    layout.lineStart += layout.lineStart.empty() ? "" : layout.step;
    return layout;
}

std::string NumberText(const Json& value)
{
    // Ours are singles; written as such they are short.
    const auto single = static_cast<float>(value.get<double>());
    return std::isfinite(single) ? PlainNumber(single) : value.dump();
}

std::string Written(const Json& value, const Layout& layout);

std::string KeyText(const std::string& key, const Layout& layout)
{
    return Json(key).dump(-1, ' ', false, Json::error_handler_t::replace) +
           (layout.airy ? ": " : ":");
}

std::string WrittenContainer(const Json& value, const Layout& layout)
{
    const bool isObject = value.is_object();
    const bool hasLines =
        !layout.lineStart.empty() && !value.empty() && (isObject || value.front().is_structured());
    const Layout inner = Deeper(layout);
    std::string text = isObject ? "{" : "[";
    bool isFirst = true;
    for (const auto& [key, member] : value.items()) {
        text += isFirst ? "" : ",";
        text += hasLines ? inner.lineStart : (isFirst || !layout.airy ? "" : " ");
        text += (isObject ? KeyText(key, layout) : "") + Written(member, inner);
        isFirst = false;
    }
    text += hasLines ? layout.lineStart : "";
    return text + (isObject ? '}' : ']');
}

std::string Written(const Json& value, const Layout& layout)
{
    if (value.is_structured()) {
        return WrittenContainer(value, layout);
    }
    return value.is_number_float() ? NumberText(value)
                                   : value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

/// That of the items which are there, else one deeper than what they are in.
Layout LayoutOf(const Container& container, const Layout& around)
{
    Layout layout = Deeper(around);
    if (!container.items.empty()) {
        const Item& last = container.items.back();
        const bool hasLines = last.lead.find('\n') != std::string_view::npos;
        layout.lineStart = hasLines ? std::string(last.lead) : std::string();
        layout.airy = last.heading.empty() ? layout.airy : last.heading.back() != ':';
    }
    return layout;
}

std::string Spliced(std::string_view text, const Json& was, const Json& now, const Layout& around);

/// The items that stay, as they are to be written.
class ItemSplicing {
public:
    ItemSplicing(const Container& container, Layout layout)
        : m_container(container), m_layout(std::move(layout))
    {
    }

    void Keep(const Item& item, const std::string& value)
    {
        Separate();
        m_text += std::string(item.lead) + std::string(item.heading) + value;
        m_trail = item.trail;
    }

    void Add(const std::string& heading, const Json& value)
    {
        const bool isFirst = m_isEmpty;
        const bool blank = m_layout.lineStart.empty() && m_layout.airy && !isFirst;
        // The last one's trail stays at the end.
        const std::string_view trail = std::exchange(m_trail, {});
        Separate();
        m_text += (blank ? " " : m_layout.lineStart) + heading + Written(value, m_layout);
        m_trail = trail;
    }

    [[nodiscard]] std::string Text(bool isObject, const Layout& around) const
    {
        const bool wasEmpty = m_container.items.empty();
        const std::string_view end = wasEmpty && !m_isEmpty ? around.lineStart
                                     : m_isEmpty            ? m_container.emptiness
                                     : m_hasLast            ? m_trail
                                                            : m_container.items.back().trail;
        return (isObject ? '{' : '[') + m_text + std::string(end) + (isObject ? '}' : ']');
    }

    void LastIsKept(bool kept) { m_hasLast = kept; }

private:
    void Separate()
    {
        m_text += std::string(m_trail) + (m_isEmpty ? "" : ",");
        m_trail = {};
        m_isEmpty = false;
    }

    const Container& m_container;
    Layout m_layout;
    std::string m_text;
    std::string_view m_trail;
    bool m_isEmpty = true;
    bool m_hasLast = true;
};

std::string SplicedObject(const Container& container, const Json& was, const Json& now,
                          const Layout& around)
{
    const Layout layout = LayoutOf(container, around);
    ItemSplicing items(container, layout);
    for (const Item& item : container.items) {
        // Of several with one key the last counts.
        const auto other =
            std::find_if(&item + 1, container.items.data() + container.items.size(),
                         [&item](const Item& later) { return later.key == item.key; });
        const bool counts = other == container.items.data() + container.items.size();
        const bool stays = !was.contains(item.key) || now.contains(item.key);
        if (stays) {
            const bool changes = counts && was.contains(item.key);
            items.Keep(item, changes ? Spliced(item.value, was[item.key], now[item.key], layout)
                                     : std::string(item.value));
        }
        items.LastIsKept(stays);
    }
    for (const auto& [key, value] : now.items()) {
        if (!was.contains(key)) {
            items.Add(KeyText(key, layout), value);
        }
    }
    return items.Text(true, around);
}

std::string SplicedArray(const Container& container, const Json& was, const Json& now,
                         const Layout& around)
{
    const Layout layout = LayoutOf(container, around);
    ItemSplicing items(container, layout);
    const std::size_t kept = std::min({container.items.size(), was.size(), now.size()});
    for (std::size_t i = 0; i < kept; ++i) {
        items.Keep(container.items[i], Spliced(container.items[i].value, was[i], now[i], layout));
    }
    items.LastIsKept(kept == container.items.size());
    for (std::size_t i = kept; i < now.size(); ++i) {
        items.Add("", now[i]);
    }
    return items.Text(false, around);
}

std::string Spliced(std::string_view text, const Json& was, const Json& now, const Layout& around)
{
    if (was == now) {
        return std::string(text);
    }
    if (was.is_object() && now.is_object()) {
        return SplicedObject(JsonReader(text).Read(), was, now, around);
    }
    if (was.is_array() && now.is_array()) {
        return SplicedArray(JsonReader(text).Read(), was, now, around);
    }
    return Written(now, around);
}

/// What the first member begins with is one step.
Layout LayoutOf(std::string_view document)
{
    Layout layout;
    const std::size_t first = document.find_first_not_of(kJsonBlanks, 1);
    const std::string_view lead = document.substr(1, std::min(first, document.size()) - 1);
    if (const std::size_t line = lead.rfind('\n'); line != std::string_view::npos) {
        layout.step = lead.substr(line + 1);
        layout.lineStart = lead.find('\r') == std::string_view::npos ? "\n" : "\r\n";
    }
    return layout;
}

}  // namespace

std::string SplicedJson(std::string_view text, const Json& was, const Json& now)
{
    const std::size_t begin = std::min(text.find_first_of("{["), text.size());
    const std::size_t last = text.find_last_of("}]");
    const std::size_t end = last == std::string_view::npos ? begin : last + 1;
    const std::string_view document = text.substr(begin, end - begin);
    return std::string(text.substr(0, begin)) + Spliced(document, was, now, LayoutOf(document)) +
           std::string(text.substr(end));
}

}  // namespace studio
