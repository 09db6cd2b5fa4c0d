// Keymap: what a terminal session does with each key combination. A map answers for its own bindings first, then for
// those of its fallback map, so that it can hide a default without changing it.
//
// Strings are kept as they were typed: "\177" is four characters, which the sender of the string interprets. Maps are
// exchanged as .key files (keymap/keymap_file.h) and kept in profiles (keymap/profile_keymap.h).
#pragma once

#include "core/report.h"
#include "core/strings.h"
#include "keymap/key_bindings.h"

#include <memory>

namespace ostrand {

/// A map as editors and the terminal see it. Keys are named by the 12 bits of keymap/key_index.h: an index beyond them
/// has no binding, and setting one does nothing. The order of the operations is part of the contract. One thread at a
/// time.
class IKeymap {
public:
    /// The map's own code; where that is 0, the fallback's.
    virtual unsigned GetFunction(unsigned keyIndex) const = 0;
    /// The map's own string; where that is empty, the fallback's, whichever map the code comes from. Lent until the key
    /// is set.
    virtual const VUnicodeString& GetString(unsigned keyIndex) const = 0;
    /// The setters touch the map itself alone.
    virtual void SetFunction(unsigned keyIndex, unsigned code) = 0;
    virtual void SetString(unsigned keyIndex, const VUnicodeString& text) = 0;
    virtual ~IKeymap() = default;
    /// Adds the bindings of a .key file. Success, or a warning for one or two bad lines, is true. False with
    /// kKeymapFileFailed in `status` for a file that can't be opened, which changes nothing, and for a third error,
    /// which ends the reading; what was read before it stays. Messages carry the path and the reasons.
    virtual bool LoadFromFile(std::u16string_view path, IReportMessageParams& status) = 0;
    /// Writes the map's own bindings as a .key file, in UTF-8 or else in the 8-bit code page. False where the file
    /// can't be written, without a message.
    virtual bool SaveToFile(std::u16string_view path, bool unicode) const = 0;
};

class OSTRAND_API Keymap : public IKeymap {
public:
    Keymap() = default;
    /// The map's own bindings; neither its fallback nor `commentSeen` come along.
    Keymap(const Keymap& other) : m_bindings(other.m_bindings) {}
    Keymap& operator=(const Keymap& other);
    ~Keymap() override = default;

    unsigned GetFunction(unsigned keyIndex) const override;
    const VUnicodeString& GetString(unsigned keyIndex) const override;
    void SetFunction(unsigned keyIndex, unsigned code) override;
    void SetString(unsigned keyIndex, const VUnicodeString& text) override;
    /// On success the default bindings become the fallback, so each key that the file doesn't name acts as its default.
    /// On purpose: bindings that were there before stay; for a clean load take a new map. Held by
    /// KeymapFile.LoadingAddsToWhatIsThere.
    bool LoadFromFile(std::u16string_view path, IReportMessageParams& status) override;
    bool SaveToFile(std::u16string_view path, bool unicode) const override;

    /// The map's own bindings.
    const KeyBindings& OwnBindings() const { return m_bindings; }
    bool HasDefaults() const { return m_defaults != nullptr; }

    /// Whether the last file that was loaded held a comment.
    bool commentSeen = false;

protected:
    void ClearFunctions() { m_bindings.ClearFunctions(); }

private:
    KeyBindings m_bindings;
    std::unique_ptr<Keymap> m_defaults; // the fallback, may be null
};

} // namespace ostrand
