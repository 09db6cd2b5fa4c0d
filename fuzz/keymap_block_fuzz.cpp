// Key maps as stored blocks: any bytes give a map, and the block of that map gives the map again.
#include "keymap/key_block.h"
#include "keymap/keymap.h"

#include <cstdlib>

using namespace ostrand;

namespace {

void Check(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    Keymap keymap;
    const KeyBlockEnd end = ReadKeyBlock({data, size}, keymap);
    Check((end == KeyBlockEnd::NoCount) == (size < 4));

    const std::vector<uint8_t> block = WriteKeyBlock(keymap.OwnBindings());
    Keymap back;
    Check(ReadKeyBlock(block, back) == KeyBlockEnd::Whole);
    Check(back.OwnBindings() == keymap.OwnBindings());
    Check(WriteKeyBlock(back.OwnBindings()) == block);
    return 0;
}
