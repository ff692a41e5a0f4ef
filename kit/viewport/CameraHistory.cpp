#include "CameraHistory.h"

namespace studio {
namespace {

constexpr std::size_t kMostVisited = 200;

}  // namespace

void CameraHistory::Begin(const Camera& camera)
{
    m_visited = {camera};
    m_at = 0;
}

void CameraHistory::Visit(const Camera& camera)
{
    if (camera == m_visited[m_at]) {
        return;
    }
    m_visited.resize(m_at + 1);
    m_visited.push_back(camera);
    if (m_visited.size() > kMostVisited) {
        m_visited.erase(m_visited.begin());
    }
    m_at = m_visited.size() - 1;
}

}  // namespace studio
