#include "LibraryLink.h"

#include <CorvexMaterial/Schema.h>

namespace studio {

CorvexDB::udtMaterial Updated(const CorvexDB::udtMaterial& material,
                              const CorvexDB::udtMaterial& taken, const CorvexDB::udtMaterial& now)
{
    CorvexDB::udtMaterial updated = material;
    for (const CorvexMaterial::AttributeRow& row : CorvexMaterial::AttributeRows()) {
        if (row.path.LeadsIntoRecord() && row.path.same(material, taken)) {
            row.path.set(updated, row.path.get(now));
        }
    }
    return updated;
}

}  // namespace studio
