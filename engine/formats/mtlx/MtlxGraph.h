#pragma once

#include "Amounts.h"
#include "MtlxDocument.h"

#include <optional>
#include <set>
#include <string>

namespace studio {

struct MtlxImage {
    std::string file;    ///< with the file prefix
    ImageWindow window;  ///< from the bottom
    bool turned = false;
};

/// What arrives at an input of a shader: a colour or amount times an image, another image mixed
/// over it. What else the nodes on the way do is listed.
struct MtlxSignal {
    Rgb factor = kWhiteRgb;  ///< light for colours, an amount in all three otherwise
    bool isSet = false;      ///< the factor is given, not just the neutral one
    std::optional<MtlxImage> image;
    std::optional<MtlxImage> overlay;
    float overlayShare = 1.0F;
    bool heights = false;     ///< the image went through a node that makes normals of heights
    bool directions = false;  ///< or holds the normals themselves
    std::set<std::string, std::less<>> passedOver;  ///< categories of nodes, names of colour spaces
};

/// Follows the connections of a document's inputs to where their values come from.
class MtlxGraph {
public:
    /// The document outlives this.
    explicit MtlxGraph(MtlxDocument& document) : m_document(document) {}

    /// However the nodes are connected, loops included, it takes a bounded time.
    [[nodiscard]] MtlxSignal Follow(const MtlxElement& input);
    /// The node, or the shader, that an input is connected to; null when there is none.
    [[nodiscard]] const MtlxElement* NodeOf(const MtlxElement& input);

private:
    struct Target {
        const MtlxElement* node = nullptr;
        const MtlxElement* output = nullptr;  ///< or one of a node graph, to be followed on
    };

    [[nodiscard]] Target TargetOf(const MtlxElement& input);
    [[nodiscard]] Target OutputOf(const MtlxElement& graph, std::string_view name);
    MtlxSignal Arriving(const MtlxElement& input, int depth);
    MtlxSignal LeavingNode(const MtlxElement& node, int depth);
    MtlxSignal LeavingInput(const MtlxElement& node, std::string_view input, int depth);
    MtlxSignal LeavingImage(const MtlxElement& node, int depth);
    MtlxSignal Product(const MtlxElement& node, int depth);
    MtlxSignal Mixture(const MtlxElement& node, int depth);
    void Place(const MtlxElement& node, MtlxImage& image, int depth);
    [[nodiscard]] std::string TextArriving(const MtlxElement& input, int depth);

    MtlxDocument& m_document;
    int m_steps = 0;
    int m_stepsInAll = 0;
};

}  // namespace studio
