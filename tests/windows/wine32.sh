#!/bin/bash
# Runs a 32-bit program for Windows in the chroot with 32-bit Wine that ./dev windows --32 makes.
# Needs root. Paths inside the repository are the same in the chroot.
#   wine32.sh <program> [arguments...]
set -euo pipefail

root=$(cd "$(dirname "$0")/../.." && pwd)
export chroot=$root/build/wine32 root
[[ -e $chroot/usr/lib/wine/wine ]] || { echo "no Wine in $chroot: run ./dev windows --32" >&2; exit 77; }
((EUID == 0)) || { echo "32-bit Wine needs root, for its mounts" >&2; exit 77; }

# Mounts that only this program sees.
# shellcheck disable=SC2016
exec unshare --mount bash -euc '
    mkdir -p "$chroot$root"
    for folder in /proc /dev "$root"; do mount --bind "$folder" "$chroot$folder"; done
    HOME=/opt WINEPREFIX=/opt/wine WINEDEBUG=-all \
        exec chroot "$chroot" /bin/sh -c "cd \"\$0\" && exec /usr/lib/wine/wine \"\$@\"" "$PWD" "$@"' wine32 "$@"
