#pragma once

#include "Camera.h"

#include <QObject>

#include <string>
#include <vector>

namespace studio {

/// A way to look at the scene that the user has kept.
struct NamedView {
    std::string name;
    Camera camera;

    bool operator==(const NamedView&) const = default;
};

/// Those of a scene, in the order in which they were kept.
class NamedViews : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] const std::vector<NamedView>& All() const { return m_views; }
    void Set(const std::vector<NamedView>& views)
    {
        if (views != m_views) {
            m_views = views;
            Q_EMIT Changed();
        }
    }

Q_SIGNALS:
    void Changed();

private:
    std::vector<NamedView> m_views;
};

}  // namespace studio
