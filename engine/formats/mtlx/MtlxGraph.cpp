#include "MtlxGraph.h"

#include "ColourSpace.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <vector>

namespace studio {
namespace {

constexpr int kMostSteps = 2000;            ///< for one input
constexpr int kMostStepsInAll = 5'000'000;  ///< for all of a document
constexpr int kMostConnections = 64;        ///< in a row

template <std::size_t Count>
bool IsOneOf(std::string_view word, const std::array<std::string_view, Count>& words)
{
    return std::ranges::find(words, word) != words.end();
}

constexpr std::array<std::string_view, 8> kImageNodes{
    "image",        "tiledimage",      "hextiledimage",       "latlongimage",
    "UsdUVTexture", "gltf_colorimage", "triplanarprojection", "gltf_image"};
/// Change a value's type or pick a part of it.
constexpr std::array<std::string_view, 13> kPlainNodes{
    "convert",   "swizzle",  "extract",  "dot",      "luminance", "separate2", "separate3",
    "separate4", "combine2", "combine3", "combine4", "constant",  "normalize"};
constexpr std::array<std::string_view, 2> kHeightNodes{"bump", "heighttonormal"};
/// Where a node has what it works on.
constexpr std::array<std::string_view, 8> kMainInputs{"in", "in1",    "value", "fg",
                                                      "bg", "height", "color", "input"};

/// Numbers apart by commas or blanks; what is none ends them.
std::vector<float> NumbersIn(std::string_view text)
{
    std::vector<float> numbers;
    while (numbers.size() < 4) {
        const std::size_t first = text.find_first_not_of(" ,\t\r\n");
        if (first == std::string_view::npos) {
            break;
        }
        text.remove_prefix(first);
        float value = 0.0F;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        if (error != std::errc() || !std::isfinite(value)) {
            break;
        }
        numbers.push_back(value);
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    }
    return numbers;
}

MtlxSignal ValueOf(const MtlxElement& input)
{
    MtlxSignal signal;
    const std::string_view text = input.Attribute("value");
    const std::vector<float> numbers = NumbersIn(text);
    if (text == "true" || text == "false") {
        signal.factor = kWhiteRgb * (text == "true" ? 1.0F : 0.0F);
        signal.isSet = true;
    }
    if (numbers.empty()) {
        return signal;
    }
    signal.isSet = true;
    signal.factor = numbers.size() < 3 ? Rgb{numbers[0], numbers.back(), numbers.back()}
                                       : Rgb{numbers[0], numbers[1], numbers[2]};
    if (input.Attribute("type").starts_with("color")) {
        const std::string_view space = input.InheritedAttribute("colorspace");
        const auto light = LightInSpace(signal.factor, space);
        signal.factor = light.value_or(signal.factor);
        if (!light) {
            signal.passedOver.emplace(space);
        }
    }
    return signal;
}

const MtlxElement* EnclosingGraph(const MtlxElement* element)
{
    while (element != nullptr && element->category != "nodegraph" &&
           element->category != "materialx") {
        element = element->parent;
    }
    return element;
}

/// Where the names that an input or output refers to are.
const MtlxElement* ScopeOf(const MtlxElement& input)
{
    const bool isOutput = input.category == "output";
    const MtlxElement* owner = input.parent;
    return EnclosingGraph(isOutput || owner == nullptr ? owner : owner->parent);
}

void Join(MtlxSignal& signal, const MtlxSignal& other)
{
    signal.factor = signal.factor * other.factor;
    signal.isSet = signal.isSet || other.isSet;
    signal.heights = signal.heights || other.heights;
    signal.directions = signal.directions || other.directions;
    signal.passedOver.insert(other.passedOver.begin(), other.passedOver.end());
}

}  // namespace

MtlxSignal MtlxGraph::Follow(const MtlxElement& input)
{
    m_steps = 0;
    return Arriving(input, 0);
}

const MtlxElement* MtlxGraph::NodeOf(const MtlxElement& input)
{
    const MtlxElement* from = &input;
    for (int connection = 0; connection < kMostConnections; ++connection) {
        const Target target = TargetOf(*from);
        if (target.output == nullptr) {
            return target.node;
        }
        from = target.output;
    }
    return nullptr;
}

MtlxGraph::Target MtlxGraph::OutputOf(const MtlxElement& graph, std::string_view name)
{
    const MtlxElement* named = m_document.Find(graph, name);
    if (named != nullptr && named->category == "output") {
        return {nullptr, named};
    }
    return {nullptr, graph.FirstOutput()};
}

MtlxGraph::Target MtlxGraph::TargetOf(const MtlxElement& input)
{
    const MtlxElement* scope = ScopeOf(input);
    if (scope == nullptr) {
        return {};
    }
    const std::string_view output = input.Attribute("output");
    const std::string_view graphName = input.Attribute("nodegraph");
    const std::string_view nodeName = input.Attribute("nodename");
    const std::string_view name = graphName.empty() ? nodeName : graphName;
    if (!name.empty()) {
        const MtlxElement* found = m_document.Find(*scope, name);
        if (found == nullptr) {
            found = m_document.Find(m_document.Root(), name);
        }
        const bool isGraph = found != nullptr && found->category == "nodegraph";
        return isGraph ? OutputOf(*found, output) : Target{found, nullptr};
    }
    if (const std::string_view face = input.Attribute("interfacename"); !face.empty()) {
        const MtlxElement* outer = scope->Input(face);
        return {nullptr, outer == &input ? nullptr : outer};
    }
    const MtlxElement* named = output.empty() ? nullptr : m_document.Find(*scope, output);
    const bool leadsOn = named != nullptr && named->category == "output" && named != &input;
    return {nullptr, leadsOn ? named : nullptr};
}

MtlxSignal MtlxGraph::Arriving(const MtlxElement& input, int depth)
{
    ++m_stepsInAll;
    if (++m_steps > kMostSteps || m_stepsInAll > kMostStepsInAll || depth > kMostConnections) {
        MtlxSignal tooFar;
        tooFar.passedOver.emplace("...");
        return tooFar;
    }
    const Target target = TargetOf(input);
    if (target.output != nullptr) {
        return Arriving(*target.output, depth + 1);
    }
    return target.node != nullptr ? LeavingNode(*target.node, depth + 1) : ValueOf(input);
}

MtlxSignal MtlxGraph::LeavingInput(const MtlxElement& node, std::string_view input, int depth)
{
    const MtlxElement* found = node.Input(input);
    return found == nullptr ? MtlxSignal() : Arriving(*found, depth);
}

MtlxSignal MtlxGraph::LeavingNode(const MtlxElement& node, int depth)
{
    if (IsOneOf(node.category, kImageNodes)) {
        return LeavingImage(node, depth);
    }
    if (node.category == "multiply") {
        return Product(node, depth);
    }
    if (node.category == "mix") {
        return Mixture(node, depth);
    }
    const auto main = std::ranges::find_if(
        kMainInputs, [&](std::string_view name) { return node.Input(name) != nullptr; });
    MtlxSignal signal = main == kMainInputs.end() ? MtlxSignal() : LeavingInput(node, *main, depth);
    if (IsOneOf(node.category, kHeightNodes)) {
        signal.heights = true;
    } else if (node.category == "normalmap") {
        signal.directions = !signal.heights;
    } else if (!IsOneOf(node.category, kPlainNodes)) {
        signal.passedOver.insert(node.category);
    }
    return signal;
}

MtlxSignal MtlxGraph::LeavingImage(const MtlxElement& node, int depth)
{
    const MtlxElement* file = node.Input("file");
    file = file == nullptr ? node.Input("filex") : file;
    MtlxSignal signal;
    const std::string name = file == nullptr ? std::string() : TextArriving(*file, depth);
    if (name.empty()) {
        return LeavingInput(node, "default", depth);
    }
    signal.image = MtlxImage{name, {}, false};
    Place(node, *signal.image, depth);
    if (node.category != "image" && node.category != "tiledimage") {
        signal.passedOver.insert(node.category);
    }
    return signal;
}

void MtlxGraph::Place(const MtlxElement& node, MtlxImage& image, int depth)
{
    const auto pair = [&](const MtlxElement& owner, std::string_view name, Rgb otherwise) {
        const MtlxSignal signal = LeavingInput(owner, name, depth);
        return signal.isSet ? signal.factor : otherwise;
    };
    // The tiles are counted first, then moved.
    const Rgb tiling = pair(node, "uvtiling", kWhiteRgb);
    const Rgb offset = pair(node, "uvoffset", kBlack);
    image.window = {-offset.red, -offset.green, tiling.red, tiling.green};
    const MtlxElement* coordinates = node.Input("texcoord");
    const MtlxElement* place = coordinates == nullptr ? nullptr : NodeOf(*coordinates);
    if (place == nullptr || place->category != "place2d") {
        return;
    }
    const Rgb scale = pair(*place, "scale", kWhiteRgb);
    const Rgb shift = pair(*place, "offset", kBlack);
    const Rgb pivot = pair(*place, "pivot", kBlack);
    image.turned = pair(*place, "rotate", kBlack).red != 0.0F;
    if (scale.red != 0.0F && scale.green != 0.0F) {
        const auto along = [](float& window, float& factor, float size, float move, float centre) {
            window += factor * (centre - centre / size - move);
            factor /= size;
        };
        along(image.window.offsetU, image.window.scaleU, scale.red, shift.red, pivot.red);
        along(image.window.offsetV, image.window.scaleV, scale.green, shift.green, pivot.green);
    }
}

MtlxSignal MtlxGraph::Product(const MtlxElement& node, int depth)
{
    MtlxSignal product = LeavingInput(node, "in1", depth);
    const MtlxSignal second = LeavingInput(node, "in2", depth);
    Join(product, second);
    if (product.image && second.image) {
        product.passedOver.insert(node.category);
    } else if (second.image) {
        product.image = second.image;
        product.overlay = second.overlay;
        product.overlayShare = second.overlayShare;
    }
    return product;
}

MtlxSignal MtlxGraph::Mixture(const MtlxElement& node, int depth)
{
    MtlxSignal below = LeavingInput(node, "bg", depth);
    const MtlxSignal above = LeavingInput(node, "fg", depth);
    const MtlxSignal share = LeavingInput(node, "mix", depth);
    const float amount = CutToUnit(share.isSet ? share.factor.red : 0.0F);
    below.passedOver.insert(share.passedOver.begin(), share.passedOver.end());
    if (share.image) {
        below.passedOver.insert(node.category);
    }
    if (above.image && !below.overlay) {
        below.overlay = above.image;
        below.overlayShare = amount;
        below.passedOver.insert(above.passedOver.begin(), above.passedOver.end());
        return below;
    }
    const Rgb from = below.factor * (1.0F - amount);
    const Rgb to = above.factor * amount;
    below.factor = {from.red + to.red, from.green + to.green, from.blue + to.blue};
    below.isSet = below.isSet || above.isSet;
    if (below.image || below.overlay) {
        below.passedOver.insert(node.category);
    }
    return below;
}

std::string MtlxGraph::TextArriving(const MtlxElement& input, int depth)
{
    const Target target = TargetOf(input);
    if (target.output != nullptr && depth < kMostConnections) {
        return TextArriving(*target.output, depth + 1);
    }
    const std::string_view file = input.Attribute("value");
    return file.empty() ? std::string()
                        : std::string(input.InheritedAttribute("fileprefix")) + std::string(file);
}

}  // namespace studio
