#!/usr/bin/env bash
# Makes the pages that come from the tool: docs/settings.md, docs/session-settings.md, docs/terminal-settings.md,
# docs/ostrandcfg.1, tools/completion/ostrandcfg.bash.
#   scripts/make-pages.sh [TOOL]     default: the release build's
set -eu
home=$(cd "$(dirname "$0")/.." && pwd)
tool=${1:-$home/build/release/bin/ostrandcfg}
"$tool" schema global --markdown >"$home/docs/settings.md"
"$tool" schema session --markdown >"$home/docs/session-settings.md"
"$tool" schema terminal --markdown >"$home/docs/terminal-settings.md"
"$tool" --man-page >"$home/docs/ostrandcfg.1"
"$tool" --bash-completion >"$home/tools/completion/ostrandcfg.bash"
