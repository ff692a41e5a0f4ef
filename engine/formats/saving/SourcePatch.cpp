#include "SourcePatch.h"

#include "DocumentFile.h"

#include <QCoreApplication>

namespace studio {

void RefuseChanged(const std::string& path)
{
    RefuseDocument(path, QCoreApplication::translate(
                             "Interchange", "it is no longer the file that was read. Reload the "
                                            "model to save materials back into it.")
                             .toStdString());
}

void RequireOwnMaterials(const MaterialSource& source, std::size_t count)
{
    const std::size_t all = source.asRead.materials.size();
    if (count != all && count + 1 != all) {
        RefuseChanged(source.path);
    }
}

}  // namespace studio
