// ProfileKeymap: the key map of a session, kept in the session's profile as one block (keymap/key_block.h).
#pragma once

#include "keymap/keymap.h"
#include "profile/value.h"

#include <memory>

namespace ostrand {

/// A key map that is a profile value. It has no fallback map: it answers for its own bindings alone. Its saved copy is
/// null until a read, a save or AcceptChanges made one; without one the map counts as changed, and reverting does
/// nothing.
class OSTRAND_API ProfileKeymap : public VProfileData, public Keymap {
public:
    ProfileKeymap() = default;
    /// Name, `dirty`, bindings and saved copy.
    ProfileKeymap(const ProfileKeymap& other);
    /// Takes the name and the bindings, and schedules a write; the saved copy stays.
    ProfileKeymap& operator=(const ProfileKeymap& other);
    ~ProfileKeymap() override = default;

    /// A map that doesn't fit into a stored value, 32000 bytes, is not written: key status and trace say so, the old
    /// value stays, and so does the map's need of a write, as after any other failure.
    void Save(VProfileKey* key, bool force) override;
    bool IsModified() const override { return !savedCopy || !(OwnBindings() == savedCopy->OwnBindings()); }
    void AcceptChanges() override;
    /// On purpose: the bindings of the saved copy by assignment, so a write is scheduled.
    void RevertChanges() override;
    /// On purpose: an assignment, so the name comes along and a write is scheduled.
    void CopyValue(const VProfileData& other) override;
    VProfileData* GetMember(int) override { return this; }

    /// The stored map; of a name with " v2" in it else the one under the name cut there, of older versions. `valueName`
    /// is remembered for saves. All bindings are dropped first, but their strings stay. A null key reads nothing, and
    /// the map stays. True also where there is no value: the empty map is then saved. False for a value too short for a
    /// count, which leaves the saved copy and `dirty` alone.
    virtual bool Load(const VProfileKey* key, const VUnicodeString& valueName);
    virtual bool ReservedOperation() { return true; }

    /// On purpose: reads nothing and is true. A session's map is edited, not loaded; who imports a file reads it by a
    /// KeymapFileReader. Held by ProfileKeymapTest.LoadsNoFile.
    bool LoadFromFile(std::u16string_view path, IReportMessageParams& status) override;

    std::unique_ptr<ProfileKeymap> savedCopy; ///< has none itself

private:
    struct WithoutSavedCopy {};
    ProfileKeymap(const ProfileKeymap& other, WithoutSavedCopy) : VProfileData(other), Keymap(other) {}

    void KeepAsSaved();
    bool Write(VProfileKey& key) const;
};

} // namespace ostrand
