#include "core/system_texts.h"

#include "core/messages.h"
#include "platform/error_codes.h"

#include <algorithm>
#include <iterator>

namespace ostrand {

namespace {

constexpr VMessageText kTexts[] = {
    {kErrorSuccess, u""},
    {kErrorFileNotFound, u"The file, key or value was not found."},
    {kErrorPathNotFound, u"The path was not found."},
    {kErrorAccessDenied, u"Access is denied."},
    {kErrorInvalidData, u"The data is invalid."},
    {kErrorGeneralFailure, u"The system reported a failure."},
    {kErrorLockViolation, u"Another process holds a lock on the file."},
    {kErrorHandleEof, u"The end of the file was reached."},
    {kErrorInvalidParameter, u"A parameter is incorrect."},
    {kErrorDiskFull, u"There is not enough space on the disk."},
    {kErrorInsufficientBuffer, u"The buffer is too small."},
    {kErrorAlreadyExists, u"The file already exists."},
    {kErrorMoreData, u"There is more data than fits."},
    {kErrorMessageNotFound, u"There is no text for this message."},
    {kErrorUnsupportedType, u"The value is of another kind."},
};

} // namespace

const char16_t* FindSystemText(unsigned code)
{
    const auto row =
        std::find_if(std::begin(kTexts), std::end(kTexts), [code](const VMessageText& m) { return m.code == code; });
    return row == std::end(kTexts) ? nullptr : row->text;
}

} // namespace ostrand
