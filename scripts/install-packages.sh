#!/usr/bin/env bash
# Installs the Debian packages that are missing: for "build" what building the tool needs, for "qt" what the view of the
# dialogs needs, for "test" all that ./test needs beside that. Does nothing, and asks for no rights, where all are there.
set -eu
build="g++ cmake ninja-build pkg-config libsodium-dev libcli11-dev nlohmann-json3-dev"
test="libgtest-dev libgmock-dev clang-format-19 clang-tidy-19 ccache ncurses-term python3 xvfb xdotool openbox"
qt="qt6-base-dev fonts-dejavu-core"
case ${1:-} in
build) wanted=$build ;;
qt) wanted="$build $qt" ;;
test) wanted="$build $qt $test" ;;
*) echo "usage: scripts/install-packages.sh build|qt|test" >&2; exit 2 ;;
esac

missing=()
for package in $wanted; do
    dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

echo "installing ${missing[*]}" >&2
as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "not root: install these packages first: ${missing[*]}" >&2; exit 1; }
    as_root=(sudo)
fi
"${as_root[@]}" apt-get update -q >&2
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -yq --no-install-recommends "${missing[@]}" >&2
