#pragma once

namespace studio {

struct Frame;

/// What a viewport shows.
class FrameSource {
public:
    virtual ~FrameSource() = default;
    /// Adds the items. Camera, background and size are the viewport's and already filled in; a
    /// source may replace the background. Called on the user-interface thread.
    virtual void Fill(Frame& frame) = 0;
};

}  // namespace studio
