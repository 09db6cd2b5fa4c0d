// Modules that are loaded while the program runs.
#pragma once

#include <string>

namespace ostrand {

/// Any function of a module, to be cast to what it is.
using VModuleFunction = void (*)();

class IModules {
public:
    virtual ~IModules() = default;
    /// Loads a module with all that it needs, so that nothing is found missing later; what it defines stays its own.
    /// `path` is full and UTF-8. Null on failure, and `reason` is then the system's text.
    virtual void* Load(const std::string& path, std::string& reason) = 0;
    /// Null where the module exports no such name.
    virtual VModuleFunction Find(void* module, const char* name) = 0;
    /// Once for each Load.
    virtual void Unload(void* module) = 0;
};

#if defined(_WIN32)
inline constexpr const char16_t* kModuleSuffix = u".dll";
#else
inline constexpr const char16_t* kModuleSuffix = u".so";
#endif

} // namespace ostrand
