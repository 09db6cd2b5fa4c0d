#include "core/random_source.h"

#include "platform/error_codes.h"
#include "platform/platform.h"

namespace ostrand {

VCapiRandomSource::VCapiRandomSource()
{
    uint8_t any = 0;
    status = Platform().dataProtection->FillRandom(&any, sizeof any);
}

bool VCapiRandomSource::GetBytes(void* buffer, unsigned count)
{
    return status == kErrorSuccess && Platform().dataProtection->FillRandom(buffer, count) == kErrorSuccess;
}

void VCapiRandomSource::FillBytes(void* buffer, unsigned count)
{
    Platform().dataProtection->FillRandom(buffer, count);
}

IRandomSource& RandomSource()
{
    // Never destroyed: values of static records refer to it.
    static IRandomSource& source = *new VCapiRandomSource;
    return source;
}

} // namespace ostrand
