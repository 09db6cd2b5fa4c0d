#!/usr/bin/env bash
# Runs a command on an X display of its own, with a window manager on it.
set -euo pipefail
coproc display { exec Xvfb -displayfd 1 -screen 0 1280x1024x24 -nolisten tcp 2>/dev/null; }
server=$display_PID
trap 'kill $server 2>/dev/null || true' EXIT
read -r number <&"${display[0]}" # comes when the display is there
export DISPLAY=:$number QT_QPA_PLATFORM=xcb
unset WAYLAND_DISPLAY
openbox >/dev/null 2>&1 &
"$@"
