#include "StudioTables.h"

#include "SettingNames.h"

namespace studio {

std::vector<std::string> StudioCustomFields::GetCustomMaterialFieldNames()
{
    std::vector<std::string> names;
    for (const QString& name : m_settings.List(kCustomFieldsSetting, Qt::KeepEmptyParts)) {
        names.push_back(name.toStdString());
    }
    return names;
}

}  // namespace studio
