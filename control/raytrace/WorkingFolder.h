#pragma once

#include <QDir>

namespace CorvexMaterial {

/// Comes back to the working folder of its beginning, whatever a host or a dialog does meanwhile.
class WorkingFolder {
public:
    WorkingFolder() : m_saved(QDir::currentPath()) {}
    ~WorkingFolder()
    {
        if (QDir::currentPath() != m_saved) {
            QDir::setCurrent(m_saved);
        }
    }
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;

private:
    QString m_saved;
};

}  // namespace CorvexMaterial
