#include "MtlxDocument.h"

#include "DocumentFile.h"

#include <QCoreApplication>
#include <QXmlStreamReader>

#include <algorithm>
#include <array>
#include <span>

namespace studio {
namespace {

constexpr std::size_t kMostParts = 2'000'000;  ///< elements and attributes
constexpr std::size_t kMostDepth = 64;
constexpr qsizetype kMostAttributes = 100;  ///< of one element; they are searched one by one

std::string MtlxText(const char* text)
{
    return QCoreApplication::translate("Interchange", text).toStdString();
}

MtlxElement ElementAt(const QXmlStreamReader& xml)
{
    MtlxElement element;
    element.category = xml.qualifiedName().toString().toStdString();
    for (const QXmlStreamAttribute& attribute : xml.attributes()) {
        element.attributes.emplace_back(attribute.qualifiedName().toString().toStdString(),
                                        attribute.value().toString().toStdString());
    }
    return element;
}

/// Builds the tree on a stack of its own; finished elements move into their parents.
class MtlxTree {
public:
    explicit MtlxTree(const std::string& path) : m_path(path) {}

    MtlxElement Read(const QByteArray& bytes)
    {
        QXmlStreamReader xml(bytes);
        xml.setNamespaceProcessing(false);
        while (!xml.atEnd()) {
            Take(xml);
        }
        if (xml.hasError()) {
            RefuseDocument(m_path,
                           MtlxText(QT_TRANSLATE_NOOP("Interchange", "it is damaged: line ")) +
                               std::to_string(xml.lineNumber()) + ", " +
                               xml.errorString().toStdString());
        }
        if (m_root.category != "materialx") {
            RefuseDocument(
                m_path, MtlxText(QT_TRANSLATE_NOOP("Interchange", "it is no MaterialX document.")));
        }
        return std::move(m_root);
    }

private:
    void Take(QXmlStreamReader& xml)
    {
        switch (xml.readNext()) {
        case QXmlStreamReader::DTD:
            RefuseDocument(m_path, MtlxText(QT_TRANSLATE_NOOP(
                                       "Interchange", "it has a document type of its own.")));
        case QXmlStreamReader::StartElement:
            Open(xml);
            break;
        case QXmlStreamReader::EndElement:
            Close();
            break;
        default:
            break;
        }
    }

    void Open(const QXmlStreamReader& xml)
    {
        const qsizetype attributes = xml.attributes().size();
        m_parts += 1 + static_cast<std::size_t>(attributes);
        if (m_parts > kMostParts || attributes > kMostAttributes || m_open.size() >= kMostDepth) {
            RefuseDocument(m_path, MtlxText(QT_TRANSLATE_NOOP(
                                       "Interchange", "it is nested too deep or is too large.")));
        }
        m_open.push_back(ElementAt(xml));
    }

    void Close()
    {
        MtlxElement element = std::move(m_open.back());
        m_open.pop_back();
        element.SortChildren();
        MtlxElement& parent = m_open.empty() ? m_root : m_open.back();
        if (m_open.empty()) {
            parent = std::move(element);
        } else {
            parent.children.push_back(std::move(element));
        }
    }

    const std::string& m_path;
    MtlxElement m_root;
    std::vector<MtlxElement> m_open;
    std::size_t m_parts = 0;
};

void PointToParents(MtlxElement& element)
{
    for (MtlxElement& child : element.children) {
        child.parent = &element;
        PointToParents(child);
    }
}

}  // namespace

const std::string* MtlxElement::FindAttribute(std::string_view name) const
{
    const auto found = std::ranges::find_if(
        attributes, [&](const auto& attribute) { return attribute.first == name; });
    return found == attributes.end() ? nullptr : &found->second;
}

std::string_view MtlxElement::Attribute(std::string_view name) const
{
    const std::string* value = FindAttribute(name);
    return value == nullptr ? std::string_view() : std::string_view(*value);
}

std::string_view MtlxElement::InheritedAttribute(std::string_view name) const
{
    for (const MtlxElement* element = this; element != nullptr; element = element->parent) {
        if (const std::string* value = element->FindAttribute(name)) {
            return *value;
        }
    }
    return {};
}

const MtlxElement* MtlxElement::Input(std::string_view name) const
{
    const std::span inputs(children.data(), inputCount);
    const auto found = std::ranges::lower_bound(inputs, name, {}, &MtlxElement::Name);
    return found == inputs.end() || found->Name() != name ? nullptr : &*found;
}

const MtlxElement* MtlxElement::FirstOutput() const
{
    const bool isAny = inputCount < children.size() && children[inputCount].category == "output";
    return isAny ? &children[inputCount] : nullptr;
}

void MtlxElement::SortChildren()
{
    const auto rest = std::stable_partition(
        children.begin(), children.end(), [](const MtlxElement& child) { return child.IsInput(); });
    inputCount = static_cast<std::size_t>(rest - children.begin());
    // Of two inputs of one name the first counts.
    std::ranges::stable_sort(children.begin(), rest, {}, &MtlxElement::Name);
    std::stable_partition(rest, children.end(),
                          [](const MtlxElement& child) { return child.category == "output"; });
}

bool MtlxElement::IsInput() const
{
    static constexpr std::array<std::string_view, 4> kInputs{"input", "parameter", "bindinput",
                                                             "bindparam"};
    return std::ranges::find(kInputs, category) != kInputs.end();
}

MtlxDocument::MtlxDocument(const QByteArray& bytes, const std::string& path)
    : m_root(MtlxTree(path).Read(bytes))
{
    PointToParents(m_root);
}

const MtlxElement* MtlxDocument::Find(const MtlxElement& parent, std::string_view name)
{
    const auto [entry, isNew] = m_names.try_emplace(&parent);
    if (isNew) {
        for (const MtlxElement& child : std::span(parent.children).subspan(parent.inputCount)) {
            entry->second.try_emplace(child.Name(), &child);
        }
    }
    const auto found = entry->second.find(name);
    return found == entry->second.end() || name.empty() ? nullptr : found->second;
}

}  // namespace studio
