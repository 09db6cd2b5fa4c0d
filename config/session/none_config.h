// NoneConfig: the built-in protocol "None", for a session that lacks one of its two sides. It has no values.
#pragma once

#include "config/session/plain_connect_config.h"

namespace ostrand {

class OSTRAND_API NoneConfig final : public PlainConnectConfig {
public:
    ConnectConfig* Clone(ICommonConfig*) const override { return new NoneConfig(*this); }
};

} // namespace ostrand
