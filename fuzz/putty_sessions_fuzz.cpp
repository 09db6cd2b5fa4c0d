// Saved sessions of PuTTY in registry exports.
#include "imports/putty_sessions.h"

#include "fuzz/session_imports.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    ostrand::fuzz::CheckImport(ostrand::ReadPuttySessions, {reinterpret_cast<const char*>(data), size});
    return 0;
}
