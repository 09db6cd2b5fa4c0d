// What the library asks of the system besides files: clock, environment, processes, modules, protection of secrets. One
// small interface each; a test replaces any of them for its own duration.
#pragma once

#include "platform/data_protection.h"
#include "platform/files.h"
#include "platform/modules.h"

#include <cstdint>
#include <string>
#include <vector>

namespace ostrand {

class IClock {
public:
    virtual ~IClock() = default;
    /// 100-nanosecond units since 1 January 1601, UTC.
    virtual uint64_t FileTime() = 0;
    /// Seconds since 1970.
    virtual uint32_t Seconds() = 0;
};

class IEnvironment {
public:
    virtual ~IEnvironment() = default;
    /// UTF-8. False when there is no such variable.
    virtual bool Get(const std::string& name, std::string& value) = 0;
    /// All variables, "NAME=value", for finds without regard to case.
    virtual std::vector<std::string> All() = 0;
};

class IProcesses {
public:
    virtual ~IProcesses() = default;
    /// Full path of the running executable, UTF-8; empty when the system doesn't tell.
    virtual std::string ExecutablePath() = 0;
    /// Full path of the folder that relative paths begin at, UTF-8; empty when the system doesn't tell.
    virtual std::string CurrentFolder() = 0;
    /// Full path of the loaded module that `address` lies in; empty for an unknown one.
    virtual std::string ModulePath(const void* address) = 0;
    /// Starts a program detached from this one, without a shell. 0 only when it was really started.
    virtual unsigned Start(const std::string& path, const std::vector<std::string>& arguments) = 0;
    /// Whether a file can be run as an application of at least this major version. Systems without version data
    /// look at the file alone.
    virtual bool IsProductExecutable(const std::string& path, unsigned minimumMajor) = 0;
    /// Whether a person sees what goes to the standard error output.
    virtual bool IsErrorTerminal() { return false; }
};

class IDisplay {
public:
    virtual ~IDisplay() = default;
    /// Whether the platform says that it smooths the edges of fonts; false where it can't be asked.
    virtual bool SmoothsFonts() = 0;
    /// The user's colours of a window, 0x00BBGGRR; black on white where the platform has none.
    virtual uint32_t WindowTextColor() { return 0x000000; }
    virtual uint32_t WindowColor() { return 0xFFFFFF; }
};

/// The services in use. Not owned.
struct VPlatform {
    IFiles* files;
    IClock* clock;
    IEnvironment* environment;
    IProcesses* processes;
    IDisplay* display;
    IDataProtection* dataProtection;
    IModules* modules;
};

/// The process's services: the system's own until a test puts others there. Filled before main, changed on one thread.
OSTRAND_API VPlatform& Platform();

/// Puts other services in place for its own lifetime: `VPlatformScope scope; Platform().clock = &fake;`
class VPlatformScope {
public:
    VPlatformScope() : m_before(Platform()) {}
    ~VPlatformScope() { Platform() = m_before; }
    VPlatformScope(const VPlatformScope&) = delete;
    VPlatformScope& operator=(const VPlatformScope&) = delete;

private:
    VPlatform m_before;
};

} // namespace ostrand
