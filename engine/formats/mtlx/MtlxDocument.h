#pragma once

#include <QByteArray>

#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace studio {

/// One element of a MaterialX document, as written.
struct MtlxElement {
    std::string category;  ///< "nodegraph", "image", "input"
    std::vector<std::pair<std::string, std::string>> attributes;
    std::vector<MtlxElement> children;  ///< inputs by name, then outputs, then the rest as written
    std::size_t inputCount = 0;
    const MtlxElement* parent = nullptr;

    /// Empty when there is none.
    [[nodiscard]] std::string_view Attribute(std::string_view name) const;
    [[nodiscard]] std::string_view Name() const { return Attribute("name"); }
    /// The element's own or that of the nearest one around it.
    [[nodiscard]] std::string_view InheritedAttribute(std::string_view name) const;
    /// An input, parameter or bound input of this name; null when there is none.
    [[nodiscard]] const MtlxElement* Input(std::string_view name) const;
    [[nodiscard]] bool IsInput() const;
    /// Null when there is none.
    [[nodiscard]] const MtlxElement* FirstOutput() const;
    /// To be called when the element is complete; makes the two above quick.
    void SortChildren();

private:
    [[nodiscard]] const std::string* FindAttribute(std::string_view name) const;
};

/// A whole document. Parents point into it: it stays where it is made.
class MtlxDocument {
public:
    /// Text that is no XML, that is no MaterialX, that has a document type, or that is nested or
    /// branched beyond all sense: FileFailed naming the file and the cause.
    MtlxDocument(const QByteArray& bytes, const std::string& path);
    MtlxDocument(const MtlxDocument&) = delete;
    MtlxDocument& operator=(const MtlxDocument&) = delete;

    [[nodiscard]] const MtlxElement& Root() const { return m_root; }
    /// The child of this name that is no input, by index; null when there is none.
    [[nodiscard]] const MtlxElement* Find(const MtlxElement& parent, std::string_view name);

private:
    using Names = std::unordered_map<std::string_view, const MtlxElement*>;

    MtlxElement m_root;
    std::unordered_map<const MtlxElement*, Names> m_names;  ///< made when first asked for
};

}  // namespace studio
