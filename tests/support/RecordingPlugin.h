#pragma once

#include "CallLog.h"
#include <CorvexMaterial/CorvexDB.h>

namespace CorvexTest {

using Parameters = std::vector<CorvexDB::PluginParameter>;

/// A plug-in whose answer can be exchanged.
class RecordingPlugin : public Recording<CorvexDB::Plugin> {
public:
    using Recording::Recording;

    Parameters GetParameters() override
    {
        m_log.Enter("Plugin.GetParameters");
        return answer ? answer() : Parameters{};
    }

    std::function<Parameters()> answer;
};

}  // namespace CorvexTest
