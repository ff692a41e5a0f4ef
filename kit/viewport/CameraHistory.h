#pragma once

#include "Camera.h"

#include <cstddef>
#include <vector>

namespace studio {

/// The views that came to rest one after the other, to go back and forward between.
class CameraHistory {
public:
    /// All earlier ones are of another scene.
    void Begin(const Camera& camera);
    /// Nothing unless it is another than the one that is shown.
    void Visit(const Camera& camera);
    [[nodiscard]] bool CanGoBack() const { return m_at > 0; }
    [[nodiscard]] bool CanGoForward() const { return m_at + 1 < m_visited.size(); }
    /// Where it can go there only.
    const Camera& Back() { return m_visited[--m_at]; }
    const Camera& Forward() { return m_visited[++m_at]; }

private:
    std::vector<Camera> m_visited{Camera()};
    std::size_t m_at = 0;
};

}  // namespace studio
