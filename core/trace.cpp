#include "core/trace.h"

#include "core/native_path.h"
#include "core/paths/path_text.h"
#include "platform/error_codes.h"
#include "platform/places.h"
#include "platform/platform.h"

#include <utility>

namespace ostrand {

namespace {

std::string TempFolder()
{
    for (const char* const name : {"TEMP", "TMPDIR"}) {
        std::string folder;
        if (Platform().environment->Get(name, folder) && !folder.empty())
            return folder;
    }
    return kFallbackTempFolder;
}

} // namespace

VUnicodeString VTraceLog::FilePath()
{
    const std::string program = Platform().processes->ExecutablePath();
    const std::string_view base = BaseName(program);
    VUnicodeString folder;
    VUnicodeString name;
    FromUtf8(TempFolder(), folder);
    FromUtf8(base.substr(0, base.find('.')), name);
    name += u".trace.log";
    return JoinPath(folder, name);
}

void VTraceLog::Open()
{
    // The folder may be everybody's. The old log is removed and the new one made afresh, so that a link which somebody
    // put there under the name isn't followed.
    const VUnicodeString path = FilePath();
    std::string native;
    if (ToNativePath(path, native))
        Platform().files->Remove(native);
    // One that can't be opened is ignored: a log is no reason to fail.
    static_cast<void>(m_file.Open(path, VFileAccess::Write, VFileDisposition::CreateNew));
}

void VTraceLog::Write(std::u16string_view text)
{
    const std::lock_guard guard(m_mutex);
    if (!std::exchange(m_wasOpened, true))
        Open();
    // After a failed write, a full disk say, the rest is dropped.
    if (m_file.IsOpen() && m_file.WriteText(text) != kErrorSuccess)
        m_file.Close();
}

void VTraceLog::Close()
{
    const std::lock_guard guard(m_mutex);
    m_file.Close();
    m_wasOpened = false;
}

VTraceLog& TraceLog()
{
    // Never destroyed: destructors of other static objects may trace.
    static VTraceLog& log = *new VTraceLog;
    return log;
}

} // namespace ostrand
