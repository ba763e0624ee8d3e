#!/usr/bin/env bash
# wine-run.sh PROGRAM.exe [ARGUMENTS...]   Runs a Windows program under Wine as an unattended check needs it.
# wine-run.sh --stop                       Ends Wine and all its programs; do it before the display ends.
#
# With a display Wine draws on it, without one the programs get windows that nobody sees (no OpenGL). Each way has a
# Wine folder of its own, WINE_PREFIX_BASE-x11 and -null. The libraries beside this file are found by every program.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
driver=null
[ -z "${DISPLAY:-}" ] || driver=x11
export WINEPREFIX=${WINE_PREFIX_BASE:-${TMPDIR:-/tmp}/quillset-wine-$(id -u)}-$driver
export WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all}
# No questions about Mono and Gecko, no entries in this desktop's menus, and a program that crashes just ends.
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml,winemenubuilder.exe,winedbg.exe=}

# Debian's scripts of the plain names ask for the 32-bit Wine, or end the server at once.
first_of() {
    local name
    for name in "$@"; do
        ! command -v "$name" || return 0
    done
    echo "wine-run.sh: Wine is not installed" >&2
    exit 127
}
wine=$(first_of /usr/lib/wine/wine64 wine64 wine)
server=$(first_of /usr/lib/wine/wineserver64 /usr/lib/wine/wineserver wineserver)

if [ "${1:-}" = --stop ]; then
    [ ! -d "$WINEPREFIX" ] || "$server" -k || true # it was not running
    exit 0
fi
[ $# -ge 1 ] || { sed -n '2,3s/^# //p' "$0"; exit 2; }

set_up() {
    "$wine" wineboot --init || return 1
    if [ $driver = null ]; then
        "$wine" reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f
    else
        # Without a window manager each window that is hidden would wait two seconds for one.
        "$wine" reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f
        "$wine" reg add 'HKCU\Software\Wine\Fonts\Replacements' /v Tahoma /d 'DejaVu Sans' /f
    fi
    "$server" -k || true
    "$server" -w
    touch "$WINEPREFIX/set-up"
}

# One of several callers does it, the others wait. What stays running must hold neither the lock nor our output,
# or whoever reads that would wait for its end.
start() {
    flock 9
    [ -e "$WINEPREFIX/set-up" ] || set_up 9>&- || return 1
    ! "$server" -p60 9>&- || "$wine" rundll32 user32.dll,GetDesktopWindow 9>&-
}
mkdir -p "$WINEPREFIX"
(start) >/dev/null 2>&1 </dev/null 9>"$WINEPREFIX/lock" || {
    echo "wine-run.sh: Wine cannot be set up in $WINEPREFIX" >&2
    exit 125
}

# Wine keeps QT_... from Windows programs and hands WINEQT_... over by that name: messages go to the error stream, and
# windows drawn in memory have fonts.
export WINEQT_FORCE_STDERR_LOGGING=${WINEQT_FORCE_STDERR_LOGGING:-1}
fonts=/usr/share/fonts/truetype/dejavu
[ ! -d $fonts ] || export WINEQT_QPA_FONTDIR=${WINEQT_QPA_FONTDIR:-Z:$fonts}
export WINEPATH="Z:$here${WINEPATH:+;$WINEPATH}"
exec "$wine" "$@"
