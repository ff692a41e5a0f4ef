#include "PluginEntry.h"

#include "ErrorTexts.h"

#include <exception>

namespace CorvexMaterial {

void RethrowNaming(const PluginEntry& entry)
{
    const ErrorReport report = Describe(std::current_exception(), entry.name);
    throw Error(report.status, "The plug-in \"" + entry.name + "\" failed: " + report.description);
}

std::vector<CorvexDB::PluginParameter> AskParameters(CorvexDB::PluginTable& table,
                                                     const PluginEntry& entry)
{
    if (entry.position < 1) {
        return {};
    }
    return Naming(entry, [&] {
        const std::vector<CorvexDB::PluginRecord> records = table.Records();
        const auto position = static_cast<std::size_t>(entry.position);
        if (position >= records.size()) {
            throw Error(Status::SubscriptOutOfRange, "it is not in the table of plug-ins");
        }
        if (records[position].plugin == nullptr) {
            throw Error(Status::InvalidArgument, "its record holds no plug-in");
        }
        return records[position].plugin->GetParameters();
    });
}

}  // namespace CorvexMaterial
