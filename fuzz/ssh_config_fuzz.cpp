// OpenSSH client configurations.
#include "imports/ssh_config.h"

#include "fuzz/session_imports.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    ostrand::fuzz::CheckImport(ostrand::ReadSshConfig, {reinterpret_cast<const char*>(data), size});
    return 0;
}
