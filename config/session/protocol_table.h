// ConnectProtocolTable: one row for each protocol that was loaded, with the functions that its module put there.
// Filled once, at start-up on the main thread (protocol_modules.h), before sessions are opened; then only read.
#pragma once

#include "config/session/connect_config.h"
#include "core/array.h"
#include "core/report.h"

#include <array>
#include <cstdint>

namespace ostrand {

class IPropertyTreeDialog;
class ISessionConfig;
class LogonPanel;
class VPropertyTreePage;

/// A protocol's pages in the dialog of a session's options. The order of the operations is a contract with foreign
/// modules.
class IProtocolPages : public IUnknown {
public:
    virtual void ShowPages(IPropertyTreeDialog* dialog, ISessionConfig* session) = 0;
    virtual void HidePages(IPropertyTreeDialog* dialog) = 0;
    virtual void RemovePages(IPropertyTreeDialog* dialog) = 0;

protected:
    ~IProtocolPages() = default;
};

/// What a protocol adds to the dialog of the global options. The order of the operations is a contract with foreign
/// modules.
class IGlobalPages : public IUnknown {
public:
    /// The dialog goes, and its pages with it.
    virtual void Detach(IPropertyTreeDialog* dialog) = 0;

protected:
    ~IGlobalPages() = default;
};

/// What an application offers to the modules. The library looks at `getProductName` alone; the other entries, and those
/// that an application's own table has behind these, are between it and the modules.
struct VAppFnTable {
    using Function = void (*)();

    Function applicationOwn[4] = {};
    /// The application's product name; lent.
    const char16_t* (*getProductName)() = nullptr;
};

/// A version of the contract between the library and its modules, as its 16 bytes lie in memory.
using VContractId = std::array<uint8_t, 16>;

/// The version that this library fulfils: 507e5bdd-b419-4f34-a246-551c31bf800a.
inline constexpr VContractId kProtocolContract = {0xdd, 0x5b, 0x7e, 0x50, 0x19, 0xb4, 0x34, 0x4f,
                                                  0xa2, 0x46, 0x55, 0x1c, 0x31, 0xbf, 0x80, 0x0a};

struct ConnectProtocolTableElement;

// What a module exports, by these names without the V. `UnloadProtocol` may be missing.
using VGetProtocolGuid = const uint8_t* (*)();
using VLoadProtocol = bool (*)(VAppFnTable* table, ConnectProtocolTableElement* element, IReportMessageParams* report);
using VUnloadProtocol = void (*)(ConnectProtocolTableElement* element);

/// A module's `LoadProtocol` fills the functions of the row that it is given; the order of the fields is a contract
/// with foreign modules. Copied by value, so it owns nothing but its two strings. A module leaves what it doesn't have
/// as it finds it; a null function counts as the one of construction.
struct OSTRAND_API ConnectProtocolTableElement {
    /// A new object with one reference, or null. The key may be null; `common` is the session's, lent for the life of
    /// the object.
    using CreateConfig = ConnectConfig* (*)(const VProfileKey* key, ICommonConfig* common,
                                            ConnectProtocolTableElement* element);
    /// A panel for the page of logon actions, owned by the caller; null for none.
    using LogonPanelFactory = LogonPanel* (*)(VPropertyTreePage* page, ISessionConfig* session);
    /// Adds the protocol's pages below `connectPage`; the result has a reference for the caller, or is null.
    using PagesFactory = IProtocolPages* (*)(IPropertyTreeDialog* dialog, int mode, ISessionConfig* session,
                                             IUnknown* owner, VPropertyTreePage* connectPage);
    /// The result has a reference for the caller, or is null.
    using AddGlobalPages = IGlobalPages* (*)(IPropertyTreeDialog* dialog);
    using Hook = void (*)();
    using QuestionHook = bool (*)();

    /// Puts the functions of construction where there is none.
    void FillGaps();

    VUnicodeString name;
    int productId = 0;
    VUnicodeString modulePath;    ///< full; empty for "None"
    void* moduleHandle = nullptr; ///< null for "None" and for a protocol that is linked to the program
    VLoadProtocol loadProtocol = nullptr;
    VUnloadProtocol unloadProtocol = nullptr; ///< may be null
    void* reserved1 = nullptr;
    CreateConfig createConfig = nullptr; ///< null: the protocol has no settings
    void* reserved2 = nullptr;
    LogonPanelFactory logonPanelFactory = nullptr;
    PagesFactory pagesFactory = [](IPropertyTreeDialog*, int, ISessionConfig*, IUnknown*,
                                   VPropertyTreePage*) -> IProtocolPages* { return nullptr; };
    AddGlobalPages addGlobalPages = [](IPropertyTreeDialog*) -> IGlobalPages* { return nullptr; };
    Hook hook1 = [] {};
    Hook hook2 = [] {};
    Hook hook3 = [] {};
    QuestionHook hook4 = [] { return false; };
    Hook hook5 = [] {};
    Hook hook6 = [] {};
    uintptr_t moduleWords[3] = {}; ///< the module's own
};

/// Rows are only appended. An index beyond raises the array's OutOfRange.
using ConnectProtocolTable = VArray<ConnectProtocolTableElement>;

/// The process's table.
OSTRAND_API ConnectProtocolTable& GetConnectProtocolTable();

} // namespace ostrand
