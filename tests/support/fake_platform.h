// Clock, environment and processes that tell what a test says. `FakePlatform fake;` puts them in place for its
// lifetime.
#pragma once

#include "platform/error_codes.h"
#include "platform/platform.h"

#include <map>
#include <string>
#include <vector>

namespace ostrand::test {

class FakeClock : public IClock {
public:
    uint64_t FileTime() override { return fileTime; }
    uint32_t Seconds() override { return seconds; }

    uint64_t fileTime = 0;
    uint32_t seconds = 0;
};

class FakeEnvironment : public IEnvironment {
public:
    bool Get(const std::string& name, std::string& value) override
    {
        const auto found = variables.find(name);
        if (found != variables.end())
            value = found->second;
        return found != variables.end();
    }
    std::vector<std::string> All() override
    {
        std::vector<std::string> all;
        for (const auto& [name, value] : variables)
            all.push_back(name + "=" + value);
        return all;
    }

    std::map<std::string, std::string> variables;
};

class FakeProcesses : public IProcesses {
public:
    struct Started {
        std::string path;
        std::vector<std::string> arguments;
    };

    std::string ExecutablePath() override { return executablePath; }
    std::string CurrentFolder() override { return currentFolder; }
    std::string ModulePath(const void*) override { return modulePath; }
    unsigned Start(const std::string& path, const std::vector<std::string>& arguments) override
    {
        started.push_back({path, arguments});
        return startResult;
    }
    /// A program passes when it is there and its major version is not below the minimum.
    bool IsProductExecutable(const std::string& path, unsigned minimumMajor) override
    {
        const auto found = majorVersions.find(path);
        return found != majorVersions.end() && found->second >= minimumMajor;
    }

    std::string executablePath = "/opt/hollowmere/Tessaly";
    std::string currentFolder = "/home/ann";
    std::string modulePath;
    unsigned startResult = kErrorSuccess;
    std::vector<Started> started;
    std::map<std::string, unsigned> majorVersions;
};

/// The real files stay; `Platform().files` may be replaced besides.
class FakePlatform {
public:
    FakePlatform()
    {
        Platform().clock = &clock;
        Platform().environment = &environment;
        Platform().processes = &processes;
    }

    FakeClock clock;
    FakeEnvironment environment;
    FakeProcesses processes;

private:
    VPlatformScope m_scope;
};

} // namespace ostrand::test
