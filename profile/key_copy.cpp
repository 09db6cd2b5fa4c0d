#include "profile/key_copy.h"

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

} // namespace ostrand
