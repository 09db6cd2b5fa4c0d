#include "config/session/terminal_config.h"

namespace ostrand {

TerminalConfig::TerminalConfig(const VProfileKey* key, bool hasNerithEmulation, const GlobalConfig* global)
{
    Schema().Load(*this, ReadContext{{key, false}, hasNerithEmulation, global});
    currentCursorKeyMode = cursorKeyMode;
    currentLineWrap = lineWrap;
    currentNewlineMode = newlineMode;
    currentKeypadMode = keypadMode;
}

VProfileData* TerminalConfig::GetMember(int index) { return Schema().GetMember(*this, index); }

VProfileData* TerminalConfig::FindMember(std::u16string_view valueName)
{
    const VSchema<TerminalConfig>& schema = Schema();
    return schema.GetMember(*this, schema.FindMember(valueName, false));
}

} // namespace ostrand
