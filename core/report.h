// Outcomes and messages: a 32-bit code, the module whose table holds its text, and string arguments. A report is a
// value that can be copied and kept; its text is made at the last moment. Also the router that shows messages in the
// application's own way.
#pragma once

#include "core/array.h"
#include "core/format.h"
#include "core/strings.h"
#include "core/unknown.h"
#include "platform/export.h"

#include <atomic>
#include <memory>
#include <vector>

namespace ostrand {

/// Names a loaded module: any address inside it. The library's own is `LibraryModule()`.
using VModuleHandle = const void*;
OSTRAND_API VModuleHandle LibraryModule();

/// The outcome object of the whole system. Code 0 is success. One thread at a time; only the count is atomic.
/// The order of the operations is part of the binary contract.
class IReportMessageParams {
public:
    virtual uint32_t AddRef() = 0;
    virtual uint32_t Release() = 0;
    /// Replaces code, module, arguments and text by those of a fresh message; count and kind stay.
    virtual void SetMessage(unsigned code) = 0;
    /// Takes code, module and arguments of another VReportMessageParams; anything else is ignored.
    virtual void Assign(IReportMessageParams* other) = 0;
    virtual unsigned GetCode() const = 0;
    /// Changes the code and nothing else.
    virtual void SetCode(unsigned code) = 0;
    /// The value that the sender stored, -1 at first. What it asks for is the router's business.
    virtual int GetReportKind() const = 0;
    virtual void SetReportKind(int kind) = 0;
    /// Appends a copy.
    virtual void AddArgument(const char16_t* text) = 0;
    /// From the 8-bit code page.
    virtual void AddArgumentA(const char* text) = 0;
    /// Formats by the message syntax, then appends.
    virtual void AddFormattedArgument(const char16_t* format, std::span<const VFormatArgument> values) = 0;
    virtual VModuleHandle GetModule() const = 0;
    /// The text with its line breaks. Computed at the first call of either form and kept, whatever is added later.
    virtual const char16_t* GetText() = 0;
    /// The text with each line break of its source as one blank; shares its cache with GetText.
    virtual const char16_t* GetTextOneLine() = 0;
    /// Characters of the cached text; 0 before it was asked for.
    virtual unsigned GetTextLength() const = 0;
    /// Borrowed pointers, valid until the report changes.
    virtual const char16_t* const* GetArguments() = 0;
    virtual const char16_t* const* GetArguments() const = 0;
    virtual int GetArgumentCount() const = 0;
    virtual ~IReportMessageParams() = default;
};

/// The one implementation; a local object or on the heap. The count starts at 1, and Release deletes at 0, so only a
/// heap object may be released to the end.
class OSTRAND_API VReportMessageParams : public IReportMessageParams {
public:
    VReportMessageParams() : VReportMessageParams(0, LibraryModule()) {}
    VReportMessageParams(unsigned code, VModuleHandle module) : m_code(code), m_module(module) {}
    /// Code, module and arguments; neither kind, count nor text.
    VReportMessageParams(const VReportMessageParams& other);
    VReportMessageParams& operator=(const VReportMessageParams& other);
    ~VReportMessageParams() override = default;

    uint32_t AddRef() override;
    uint32_t Release() override;
    void SetMessage(unsigned code) override;
    void Assign(IReportMessageParams* other) override;
    unsigned GetCode() const override { return m_code; }
    void SetCode(unsigned code) override { m_code = code; }
    int GetReportKind() const override { return m_kind; }
    void SetReportKind(int kind) override { m_kind = kind; }
    void AddArgument(const char16_t* text) override;
    void AddArgumentA(const char* text) override;
    void AddFormattedArgument(const char16_t* format, std::span<const VFormatArgument> values) override;
    VModuleHandle GetModule() const override { return m_module; }
    const char16_t* GetText() override;
    const char16_t* GetTextOneLine() override;
    unsigned GetTextLength() const override;
    const char16_t* const* GetArguments() override;
    const char16_t* const* GetArguments() const override;
    int GetArgumentCount() const override;

    /// Success, without cost where it already says so: what an operation that went well leaves in a key.
    void Succeed()
    {
        if (m_code != 0)
            SetMessage(0);
    }

private:
    const char16_t* TextOf(bool oneLine);

    int m_kind = -1;
    std::vector<const char16_t*> m_pointers; // into m_arguments, for the borrowed array
    std::vector<VUnicodeString> m_arguments;
    unsigned m_code;
    VModuleHandle m_module;
    std::unique_ptr<VUnicodeString> m_text; // null until it is asked for
    std::atomic<int32_t> m_references{1};
};

/// Sets code and arguments and is false, so that a failure is one line: `return Fail(report, kNameInUse, name);`
template <class... Arguments>
bool Fail(IReportMessageParams& report, unsigned code, const Arguments&... arguments)
{
    report.SetMessage(code);
    (report.AddArgument(VUnicodeString(arguments).c_str()), ...);
    return false;
}

/// The application's interface for messages. The library calls the seventh operation alone.
class VReportMessageRouter {
public:
    virtual ~VReportMessageRouter() = default;
    virtual void Reserved1() {}
    virtual void Reserved2() {}
    virtual void Reserved3() {}
    virtual void Reserved4() {}
    virtual void Reserved5() {}
    /// Shows or logs the message. A router that keeps it adds a reference of its own.
    virtual void Route(IReportMessageParams* message) = 0;
};

using VReportRouterGetter = VReportMessageRouter* (*)();
/// Null removes the getter. Set at start-up, on the main thread.
OSTRAND_API void SetReportRouterGetter(VReportRouterGetter getter);

/// Makes the heap messages of the functions below; replaceable, set at load and not changed afterwards.
using VReportFactory = IReportMessageParams* (*)(unsigned code, VModuleHandle module);
OSTRAND_API void SetReportFactory(VReportFactory factory);

/// Looks up texts of codes that are neither the library's nor the platform's; null result: unknown there too.
using VForeignTextHook = const char16_t* (*)(unsigned code, VModuleHandle module);
OSTRAND_API void SetForeignTextHook(VForeignTextHook hook);

/// Sends a copy of the message to the router; without one the message goes nowhere. `message` stays as it was.
OSTRAND_API void VReportMessage(int reportKind, IReportMessageParams& message);
/// The same for a message that is on the heap already: sets the kind, routes, and releases the caller's reference.
OSTRAND_API void VReportHeapMessage(int reportKind, IReportMessageParams* message);

} // namespace ostrand
