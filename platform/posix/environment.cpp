#include "platform/posix/posix_services.h"

#include <cstdlib>

#include <unistd.h>

namespace ostrand::posix {

namespace {

class PosixEnvironment final : public IEnvironment {
public:
    bool Get(const std::string& name, std::string& value) override
    {
        const char* const found = std::getenv(name.c_str());
        if (found)
            value = found;
        return found != nullptr;
    }
    std::vector<std::string> All() override
    {
        std::vector<std::string> all;
        for (char** entry = environ; entry && *entry; ++entry)
            all.emplace_back(*entry);
        return all;
    }
};

constinit Forever<PosixEnvironment> g_environment;

} // namespace

IEnvironment& Environment() { return g_environment.object; }

} // namespace ostrand::posix
