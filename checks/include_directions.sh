#!/usr/bin/env bash
# Fails on an include that points upwards, on a toolkit's header outside platform/qt, and on a system switch outside
# platform/. Lowest first: platform, core, profile, keymap, config, imports; stores stand on profile, imports on them,
# dialogs on config, platform/qt on dialogs/kit.
set -u
cd "$(dirname "$0")/.."
found=0

# may FOLDER "FOLDERS": what FOLDER includes by a path from the root comes from one of these.
may() {
    local allowed=${2// /|}
    if grep -rnHE '^#include "[^"]+/' "$1" --include='*.h' --include='*.cpp' | grep -vE "#include \"($allowed)/" |
        grep -vE '^core/entry\.(h|cpp):'; then # entry points call upwards: they are the top of the library
        echo "^ $1 includes only: $2"
        found=1
    fi
}
for header in platform/*.h; do
    may "$header" "platform core"
done
may platform/posix "platform core"
may platform/qt "platform/qt dialogs/kit keymap profile core"
may core "core platform"
may profile "profile core platform"
may keymap "keymap profile core platform"
may config "config keymap profile core platform"
may stores "stores profile core platform"
may imports "imports config keymap stores profile core platform"
may dialogs/kit "dialogs/kit config keymap profile core platform"
may dialogs "dialogs config keymap profile core platform"

lower="core profile keymap config stores imports dialogs platform/posix platform/*.h"
if grep -rnE '^#include <Q[A-Z]|^#include <(gtk|windows\.h)' $lower --include='*.h' --include='*.cpp'; then
    echo "^ a toolkit stands in platform/qt alone"
    found=1
fi
if grep -rnE '^ *# *(if|ifdef|elif).*(_WIN32|__linux__|__unix__|__APPLE__)' core profile keymap config stores imports dialogs tools --include='*.h' --include='*.cpp'; then
    echo "^ system switches stand in platform/ alone"
    found=1
fi
exit $found
