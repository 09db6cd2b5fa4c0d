// ProfileColorSchemeList: all colour schemes, in one key of the default store: one block for each, named like the
// scheme. Sessions name a scheme; the list belongs to the global record.
#pragma once

#include "config/global/color_scheme.h"
#include "core/array.h"
#include "core/report.h"

#include <memory>

namespace ostrand {

/// A value of its own kind: it has a snapshot instead of a saved copy, and goes to its own key whatever key it is
/// given. After any load it has a scheme "Monochrome". Names ignore case; where a merge has left a name twice, the
/// first counts. Indexes outside raise VArray's OutOfRange. One thread at a time.
class OSTRAND_API ProfileColorSchemeList : public VProfileData {
public:
    static constexpr const char16_t* kName = u"Color Schemes";

    ProfileColorSchemeList() = default;
    ProfileColorSchemeList(const ProfileColorSchemeList& other);
    /// Name, mark and schemes; the snapshot stays.
    ProfileColorSchemeList& operator=(const ProfileColorSchemeList& other);

    /// As part of a record: `LoadByName`; with a null key no store is opened, and the list has the built-in schemes.
    void LoadPart(const VProfileKey* key);
    void MergePart(const VProfileKey* key) { ReadValue(key); }
    /// On purpose: appends what the default store has, never clears, and doesn't look at the key. An empty key gives
    /// the built-in schemes; one scheme of the user's suppresses all of them but "Monochrome". Held by
    /// ColorSchemes.OneSchemeSuppressesTheBuiltInOnes.
    void LoadByName(const VProfileKey* key, const VUnicodeString& listName);
    /// False for a null key, or one without a subkey of the list's name; else `LoadByName`.
    bool ReadValue(const VProfileKey* key);

    /// Deletes stored schemes that the list lacks, also without a change, and saves what is changed or pending. Refused
    /// with the reason of the last load, where that could not read the store.
    void Save(VProfileKey* key, bool force) override;
    /// Whether the next save writes a scheme.
    bool IsAnyPending() const;
    /// What the store said to the last save.
    IReportMessageParams& GetSaveReport() { return m_saveReport; }
    /// Records that differ from the snapshot's, by their place; names don't count. Without a snapshot false.
    bool IsModified() const override;
    void AcceptChanges() override;
    /// Nothing without a snapshot.
    void RevertChanges() override;
    void CopyValue(const VProfileData& other) override { *this = dynamic_cast<const ProfileColorSchemeList&>(other); }
    VProfileData* GetMember(int) override { return this; }

    bool Exists(std::u16string_view schemeName) const { return Find(schemeName) < GetCount(); }
    /// The place of a scheme; the count for an unknown name.
    size_t Find(std::u16string_view schemeName) const;
    /// A copy; for an unknown name that of "Monochrome".
    ProfileColorScheme GetByName(std::u16string_view schemeName) const;
    ProfileColorScheme GetAt(size_t index) const { return *m_schemes[index]; }
    void Add(const ProfileColorScheme& scheme);
    void ReplaceAt(size_t index, const ProfileColorScheme& scheme);
    void RemoveAt(size_t index) { m_schemes.RemoveAt(index); }
    void Clear() { m_schemes = Schemes(); }
    size_t GetCount() const { return m_schemes.GetCount(); }
    /// Appends a scheme of these colours, or the stored one of its name; `key` may be null.
    void AddDefault(const VProfileKey* key, const char16_t* schemeName, uint32_t foreground, uint32_t background);

private:
    using Schemes = VArray<std::unique_ptr<ProfileColorScheme>>;

    void CopySchemes(const ProfileColorSchemeList& other);
    void ReadSchemes(const VProfileKey& key);
    void Load(const VProfileKey* key, const char16_t* schemeName, const ColorScheme& scheme);
    void AddBuiltInSchemes(const VProfileKey* key);
    VStringArray Surplus(const VProfileKey& key) const;

    Schemes m_schemes;
    std::unique_ptr<ProfileColorSchemeList> m_snapshot; // has none itself
    unsigned m_loadFailure = 0;                         // of the last load; 0 also where there was no key yet
    VReportMessageParams m_saveReport;
};

} // namespace ostrand
