// The record of the rows that must not compile, and of the ones that must.
#pragma once

#include "profile/schema.h"

namespace ostrand {

struct Printing : VProfileRecord {
    using ReadContext = VReadContext;

    VProfileData* GetMember(int) override { return nullptr; }

    VProfile<int> copies;
    VProfile<bool> isDuplex;
};

} // namespace ostrand
