#include "profile/key_copy.h"

#include "core/fold.h"
#include "core/messages.h"
#include "profile/stored_value.h"

namespace ostrand {

namespace {

bool CopyValues(const VProfileKey& from, VProfileKey& to, IReportMessageParams& report)
{
    VProfileKeyIterator values(&from, true);
    VUnicodeString name;
    int type = 0;
    StoreValue value;
    while (values.NextValue(name, &type))
        if (!ReadStoredValue(from, name.c_str(), static_cast<VProfileValueType>(type), value) ||
            !WriteStoredValue(to, name.c_str(), value))
            return Fail(report, kValueNotCopied, name);
    return true;
}

/// Behind the name of a key while it changes in case alone; no one types it.
constexpr const char16_t* kPassing = u"\u0001renamed";

bool Move(VProfileKey& root, const VUnicodeString& from, const VUnicodeString& to, IReportMessageParams& report)
{
    bool isCopied = false;
    {
        const VProfileKey old(&root, from.c_str());
        VProfileKey copy(&root, to.c_str());
        isCopied = CopyKey(old, copy, report);
    }
    if (isCopied && root.DeleteKey(from.c_str()))
        return true;
    if (isCopied)
        report.Assign(&root.GetStatus());
    root.DeleteKey(to.c_str());
    return false;
}

} // namespace

bool CopyKey(const VProfileKey& from, VProfileKey& to, IReportMessageParams& report)
{
    if (!CopyValues(from, to, report) || !to.Flush(report))
        return false;
    VProfileKeyIterator keys(&from, false);
    VUnicodeString name;
    while (keys.Next(name)) {
        const VProfileKey below(&from, name.c_str());
        VProfileKey copy(&to, name.c_str());
        if (!CopyKey(below, copy, report))
            return false;
    }
    return true;
}

bool MoveKey(const VProfileStore& store, const VUnicodeString& from, const VUnicodeString& to,
             IReportMessageParams& report)
{
    VProfileKey& root = *store.GetRootKey();
    if (!EqualNoCase(from, to))
        return Move(root, from, to, report);
    const VUnicodeString passing = from + kPassing;
    if (!Move(root, from, passing, report))
        return false;
    if (Move(root, passing, to, report))
        return true;
    VReportMessageParams ignored;
    Move(root, passing, from, ignored);
    return false;
}

} // namespace ostrand
