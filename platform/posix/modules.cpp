#include "platform/posix/posix_services.h"

#include <dlfcn.h>

namespace ostrand::posix {

namespace {

class PosixModules final : public IModules {
public:
    void* Load(const std::string& path, std::string& reason) override
    {
        void* const module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (!module)
            reason = dlerror();
        return module;
    }
    VModuleFunction Find(void* module, const char* name) override
    {
        return reinterpret_cast<VModuleFunction>(dlsym(module, name));
    }
    void Unload(void* module) override { dlclose(module); }
};

constinit Forever<PosixModules> g_modules;

} // namespace

IModules& Modules() { return g_modules.object; }

} // namespace ostrand::posix
