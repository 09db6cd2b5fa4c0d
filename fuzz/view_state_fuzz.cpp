// Texts of view states: whatever was read, what is written from it reads back as the same, and a second text behind the
// first, as a merge brings it, is no worse.
#include "profile/view_state.h"

#include <cstdint>
#include <cstdlib>
#include <string>

using namespace ostrand;

namespace {

template <class State>
void Check(const VUnicodeString& text)
{
    State state;
    state.Load(nullptr, text);
    state.FormatText();
    State back;
    back.Load(nullptr, state.Value());
    if (back.IsModified())
        std::abort();
    back.FormatText();
    if (back.Value() != state.Value())
        std::abort();

    state.ParseText(text);
    state.FormatText();
    if (back.Value() != state.Value())
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    // One character a byte keeps the fuzzer near texts; the parsers see nothing but ASCII as special.
    const VUnicodeString text = std::u16string_view(std::u16string(data, data + size));
    Check<VProfileListViewState>(text);
    Check<VProfileExplorerFrameState>(text);
    return 0;
}
