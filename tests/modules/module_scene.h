// A folder with modules, the applications beside them, and all that loading them asks of the process.
#pragma once

#include "config/session/connect_config_ptr.h"
#include "config/session/protocol_modules.h"
#include "core/messages.h"
#include "core/product.h"
#include "platform/error_codes.h"
#include "tests/modules/probe/probe.h"
#include "tests/support/default_store.h"
#include "tests/support/fake_platform.h"
#include "tests/support/hive_folders.h"
#include "tests/support/recording_prompts.h"
#include "tests/support/recording_router.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>

namespace ostrand::test {

/// The system's modules, with the balance of loads of each.
class CountingModules : public IModules {
public:
    void* Load(const std::string& path, std::string& reason) override
    {
        void* const module = m_real.Load(path, reason);
        loads += module ? 1 : 0;
        return module;
    }
    VModuleFunction Find(void* module, const char* name) override { return m_real.Find(module, name); }
    void Unload(void* module) override
    {
        ++unloads;
        m_real.Unload(module);
    }

    int loads = 0;
    int unloads = 0;

private:
    IModules& m_real = *Platform().modules;
};

class ModuleScene : public testing::Test {
protected:
    static constexpr const char* kAllFiles[] = {"ProtoAlpha", "ProtoBeta", "ProtoGamma", "ProtoDelta", "ProtoEpsilon",
                                                "ProtoZeta",  "ProtoEta",  "ProtoTheta", "ProtoIota"};

    ModuleScene()
    {
        Platform().modules = &modules;
        table.script = &script;
        table.getProductName = [] { return u"Tessaly"; };
        Install({"Tessaly"});
        platform.processes.executablePath = folder.Path("Tessaly");
    }
    ~ModuleScene() override
    {
        script.throwing.clear();
        UnloadConnectionProtocolDlls();
        UnloadConnectionProtocolDlls();
        EXPECT_EQ(modules.loads, modules.unloads) << "each module is given back once";
        EXPECT_EQ(prompts.waiting, 0);
        platform.processes.majorVersions.clear();
        OstrandUiInitClientApplications(u"/");
    }

    void Install(std::initializer_list<const char*> applications)
    {
        platform.processes.majorVersions.clear();
        for (const char* const name : applications)
            platform.processes.majorVersions[folder.Path(name)] = 9;
    }
    /// A copy of a probe under the name of a module file.
    void Put(std::string_view file, const std::string& probe = "probe")
    {
        std::filesystem::copy_file(std::string(OSTRAND_PROBES) + "/" + probe + ".so",
                                   folder.Path(std::string(file) + ".so"),
                                   std::filesystem::copy_options::overwrite_existing);
    }
    void PutAll()
    {
        for (const char* const file : kAllFiles)
            Put(file);
    }

    bool Load(int product = kProductTessaly)
    {
        progress.clear();
        return LoadConnectionProtocolDlls(
            table, product, VUnicodeString(folder.WidePath()).c_str(),
            [](uint64_t, const char16_t* name) { progress.push_back(ToUtf8(name)); }, offer, report);
    }
    /// "3 SSH2"
    static std::vector<std::string> Rows()
    {
        std::vector<std::string> rows;
        for (const ConnectProtocolTableElement& row : GetConnectProtocolTable())
            rows.push_back(std::to_string(row.productId) + " " + ToUtf8(row.name));
        return rows;
    }
    int Calls(const std::string& step) { return script.calls[step]; }

    static inline std::vector<std::string> progress;
    FakePlatform platform;
    CountingModules modules;
    TempFolder folder;
    HiveFolders hives;
    DefaultMemoryStore store;
    RecordingPrompts prompts;
    RecordingRouter router;
    ProbeScript script;
    ProbeTable table;
    bool offer = false;
    VReportMessageParams report;
};

} // namespace ostrand::test
