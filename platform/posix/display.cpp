#include "platform/posix/posix_services.h"

namespace ostrand::posix {

namespace {

class PosixDisplay final : public IDisplay {
public:
    bool SmoothsFonts() override { return false; }
};

constinit Forever<PosixDisplay> g_display;

} // namespace

IDisplay& Display() { return g_display.object; }

} // namespace ostrand::posix
