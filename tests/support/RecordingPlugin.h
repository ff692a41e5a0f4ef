#pragma once

#include "CallLog.h"
#include "Testing.h"
#include <CorvexMaterial/CorvexDB.h>

namespace CorvexTest {

class RecordingPlugin : public Recording<CorvexDB::Plugin> {
public:
    RecordingPlugin(CallLog& log, std::vector<CorvexDB::PluginParameter> parameters)
        : Recording(log), m_parameters(std::move(parameters))
    {
    }

    std::vector<CorvexDB::PluginParameter> GetParameters() override
    {
        return m_log.Answer("Plugin.GetParameters", m_parameters);
    }

private:
    std::vector<CorvexDB::PluginParameter> m_parameters;
};

}  // namespace CorvexTest
