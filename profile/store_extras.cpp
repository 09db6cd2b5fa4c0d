#include "profile/store_extras.h"

#include "platform/error_codes.h"

namespace ostrand {

namespace {

bool NotSupported(IReportMessageParams& report) { return Fail(report, kErrorNotSupported); }

} // namespace

bool IStoreExtras::BeginTransaction(IReportMessageParams& report) { return NotSupported(report); }

bool IStoreExtras::CommitTransaction(IReportMessageParams& report) { return NotSupported(report); }

bool IStoreExtras::Poll(std::vector<VUnicodeString>&, IReportMessageParams& report) { return NotSupported(report); }

bool IStoreExtras::FindPlace(const char16_t*, const char16_t*, ValuePlace&) { return false; }

bool IStoreExtras::ListVersions(const char16_t*, std::vector<StoreVersion>&, IReportMessageParams& report)
{
    return NotSupported(report);
}

bool IStoreExtras::ReadVersion(const char16_t*, unsigned, std::string&, IReportMessageParams& report)
{
    return NotSupported(report);
}

bool IStoreExtras::RestoreVersion(const char16_t*, unsigned, IReportMessageParams& report)
{
    return NotSupported(report);
}

bool IStoreExtras::ProposeRepair(const char16_t*, std::string&, IReportMessageParams& report)
{
    return NotSupported(report);
}

bool IStoreExtras::RepairKey(const char16_t*, std::string&, IReportMessageParams& report)
{
    return NotSupported(report);
}

} // namespace ostrand
