#include "tools/import_file.h"

#include "core/report.h"
#include "platform/error_codes.h"
#include "platform/platform.h"
#include "tools/config_folder.h"
#include "tools/output.h"

namespace ostrand::tool {

Exit ReadImportFile(const std::string& file, std::string& bytes)
{
    VFileInfo info;
    const unsigned code = Platform().files->ReadWhole(file, kMaxImportBytes + 1, bytes, info);
    VReportMessageParams report(code, LibraryModule());
    return code == kErrorSuccess ? Exit::Done : Fail(Exit::Failed, file + ": " + ReportText(report));
}

std::string FaultText(const std::string& file, const ImportFault& fault)
{
    return PlaceText({file, fault.line}) + ": " + Lossless(fault.text);
}

} // namespace ostrand::tool
