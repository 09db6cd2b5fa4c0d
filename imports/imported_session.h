// Sessions as importers give them: plain data that knows no store. Whoever writes them makes a session of each, sets
// the connection's fields in the configuration of its protocol, and the values by their names.
#pragma once

#include "imports/import_fault.h"
#include "imports/imported_names.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <variant>
#include <vector>

namespace ostrand {

/// The line settings of a serial device. Parity and stop bits are the codes that the session stores: none, odd, even,
/// mark, space from 0; one, one and a half, two from 0.
struct ImportedSerial {
    VUnicodeString port;
    uint32_t baudRate = 9600;
    uint32_t dataBits = 8;
    uint32_t stopBits = 0;
    uint32_t parity = 0;
    bool xonFlow = false;
    bool ctsFlow = false;
    bool dsrFlow = false;

    bool operator==(const ImportedSerial&) const = default;
};

/// A value of the session or its terminal, under the name and in the form in which it is stored: a number, a text or a
/// block.
struct ImportedValue {
    VUnicodeString name;
    std::variant<uint32_t, VUnicodeString, std::vector<uint8_t>> data;

    bool operator==(const ImportedValue&) const = default;
};

struct ImportedSession {
    VUnicodeString name;     ///< one that a session may have, unlike those of all others of the import
    VUnicodeString folder;   ///< below the folder that takes the import; empty for that one itself
    VUnicodeString protocol; ///< "SSH2", "SSH1", "Telnet", "RLogin" or "Serial"
    VUnicodeString hostname; ///< empty for a serial line
    uint32_t port = 0;       ///< 1 to 65535; 0: the protocol's usual one
    VUnicodeString username;
    VUnicodeString description;
    std::optional<ImportedSerial> serial; ///< of the protocol "Serial"
    std::vector<ImportedValue> values;
    size_t line = 0; ///< where it begins in the file
};

/// A setting of the file that has no counterpart here.
struct UnmappedName {
    size_t line = 0; ///< of the first one
    VUnicodeString name;
    size_t count = 0;
};

struct SessionImport {
    std::vector<ImportedSession> sessions;
    std::vector<ImportFault> notes;     ///< what was changed or passed over; the first of them, if there are very many
    std::vector<UnmappedName> unmapped; ///< each name once, in the order of the file
};

/// Collects the sessions of a file.
class SessionCollector {
public:
    /// Files with more sessions than this are refused.
    static constexpr size_t kMaxSessions = 20'000;
    static constexpr size_t kMaxNotes = 1000;
    static constexpr size_t kMaxUnmapped = 1000;

    /// Adds one, under a name that is made valid and unlike all others, with a note where that changed it. False for
    /// too many.
    bool Add(ImportedSession session);
    void Note(size_t line, VUnicodeString text);
    void NoteUnmapped(size_t line, std::u16string_view name);
    /// False, with `none` as the reason, if there are no sessions; notes and unmapped names come in either case.
    bool Finish(SessionImport& out, ImportFault& error, const char16_t* none);

private:
    SessionImport m_import;
    ImportedNames m_names;
    std::unordered_map<std::u16string, size_t> m_unmapped; // places by folded name
};

} // namespace ostrand
