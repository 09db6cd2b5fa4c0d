#include "tests/vectors/topics.h"

#include <array>

namespace ostrand::vectors {

std::span<const Topic> Topics()
{
    static const std::array topics = {
        Topic{"message_format", MessageFormatKinds()},
        Topic{"message_texts", MessageTextsKinds()},
        Topic{"octal", OctalKinds()},
        Topic{"text_split", TextSplitKinds()},
        Topic{"text_file", TextFileKinds()},
        Topic{"value_model", ValueModelKinds()},
        Topic{"list_view_state", ListViewStateKinds()},
        Topic{"explorer_frame_state", ExplorerFrameStateKinds()},
        Topic{"time_text", TimeTextKinds()},
        Topic{"log_font", LogFontKinds()},
        Topic{"multi_line", MultiLineKinds()},
        Topic{"raw_block", RawBlockKinds()},
        Topic{"global_config", GlobalConfigKinds()},
        Topic{"xor_text", XorTextKinds()},
        Topic{"blowfish_cipher", BlowfishCipherKinds()},
        Topic{"blowfish_text", BlowfishTextKinds()},
        Topic{"protected_values", ProtectedValuesKinds()},
        Topic{"login_script", LoginScriptKinds()},
        Topic{"color_scheme", ColorSchemeKinds()},
        Topic{"serial_config", SerialConfigKinds()},
        Topic{"remote_host", RemoteHostKinds()},
        Topic{"synchronize", SynchronizeKinds()},
        Topic{"terminal_config", TerminalConfigKinds()},
        Topic{"session_folder", SessionFolderKinds()},
        Topic{"session_config", SessionConfigKinds()},
        Topic{"paths", PathsKinds()},
        Topic{"path_tokens", PathTokensKinds()},
        Topic{"time_zone", TimeZoneKinds()},
        Topic{"keymap_tables", KeymapTablesKinds()},
        Topic{"key_file", KeyFileKinds()},
        Topic{"keymap_block", KeymapBlockKinds()},
    };
    return topics;
}

} // namespace ostrand::vectors
