#include "examples/host/example_copy.h"

#include "core/paths/folders.h"
#include "core/strings.h"

#include <QDir>
#include <QTemporaryDir>

#include <filesystem>

namespace host {

std::string CopyExample()
{
    QTemporaryDir folder(QDir::tempPath() + QStringLiteral("/ostrand-example-XXXXXX"));
    folder.setAutoRemove(false);
    const std::string copy = folder.path().toStdString();
    const std::filesystem::path example = std::filesystem::path(ostrand::ToUtf8(ostrand::GetExeFolder())) / "example";
    std::error_code error;
    std::filesystem::copy(example, copy, std::filesystem::copy_options::recursive, error);
    return error ? std::string() : copy;
}

} // namespace host
