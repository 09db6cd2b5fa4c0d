// Where a session's files go to and come from while the user hasn't said so.
#pragma once

#include "core/strings.h"

namespace ostrand {

enum class VTransferWay { Upload, Download };

/// The user's home folder, or the one for downloads; on a portable run without them "%u3doc%"; else the documents
/// folder; at last a folder below the application's configuration.
VUnicodeString DefaultTransferFolder(VTransferWay way);

} // namespace ostrand
