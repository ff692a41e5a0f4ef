#pragma once

#include <memory>

namespace studio {

class Thumbnailer;

/// Draws thumbnails in a program without a window. Needs an application object.
class HeadlessThumbnails {
public:
    HeadlessThumbnails();
    ~HeadlessThumbnails();

    [[nodiscard]] const Thumbnailer& Get() const;

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

}  // namespace studio
