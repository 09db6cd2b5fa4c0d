// What targets of file readers share: the input is a file in memory, ahead of it a byte for the target's own choices.
#pragma once

#include "fuzz/check.h"
#include "platform/platform.h"
#include "tests/support/memory_files.h"

#include <cstdint>
#include <string>

namespace ostrand::fuzz {

/// In place of the system's files for its lifetime. The input must not be empty.
struct OneFile {
    static constexpr const char16_t* kPath = u"/file";

    OneFile(const uint8_t* data, size_t size) : choice(data[0]), bytes(files.contents["/file"])
    {
        Platform().files = &files;
        bytes.assign(reinterpret_cast<const char*>(data) + 1, size - 1);
    }

    VPlatformScope scope;
    test::MemoryFiles files;
    const unsigned choice;
    std::string& bytes;
};

} // namespace ostrand::fuzz
