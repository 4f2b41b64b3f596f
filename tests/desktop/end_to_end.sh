#!/bin/bash
# Starts the real program on an X display of its own (Xvfb), drives it with real X input and
# keeps screenshots. Usage: end_to_end.sh <pendulon> <screenshot folder>
set -u
PROGRAM=$1
SHOTS=$2
TITLE='^Pendulon\(tm\) 3\.71$'
mkdir -p "$SHOTS"
CONFIG=$(mktemp -d)
XVFB_PID=
trap '[ -n "$XVFB_PID" ] && kill "$XVFB_PID" 2>/dev/null; rm -rf "$CONFIG"' EXIT

# Our own X server on a display number the server itself picks as free, so that no other
# server on the machine can be taken for ours; it writes the number once it accepts clients.
# The server must answer there while it runs, else ours tries again. An X server starts
# afresh whenever its last client has gone, and refuses connections while it does: a program
# started just after the previous one ended (or after a probe with xdotool) would find no
# display. Ours never starts afresh (-noreset).
start_x() {
    for attempt in 1 2 3; do
        : >"$CONFIG/display"
        Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -noreset 3>"$CONFIG/display" \
            2>"$CONFIG/xvfb.log" &
        XVFB_PID=$!
        for _ in $(seq 1 300); do
            [ -s "$CONFIG/display" ] && break
            kill -0 "$XVFB_PID" 2>/dev/null || break
            sleep 0.1
        done
        if [ -s "$CONFIG/display" ]; then
            number=$(tr -d '[:space:]' <"$CONFIG/display")
            export DISPLAY=":$number"
            for _ in $(seq 1 150); do
                kill -0 "$XVFB_PID" 2>/dev/null || break
                xdotool getdisplaygeometry >/dev/null 2>&1 && return 0
                sleep 0.2
            done
        fi
        echo "end-to-end: X server attempt $attempt on ${DISPLAY:-no display} failed:" >&2
        cat "$CONFIG/xvfb.log" >&2
        kill "$XVFB_PID" 2>/dev/null
        wait "$XVFB_PID" 2>/dev/null
        XVFB_PID=
    done
    return 1
}
start_x || { echo "FAIL: the X server did not start" >&2; exit 1; }
export XDG_CONFIG_HOME="$CONFIG/user"
# Keep the machine's own system-wide settings out of the test.
export XDG_CONFIG_DIRS="$CONFIG/system"
export QT_QPA_PLATFORM=xcb
SETTINGS="$XDG_CONFIG_HOME/Pendulon/Pendulon.conf"

fail() {
    echo "FAIL: $*" >&2
    # What the screen showed when it went wrong, for the one who reads the log.
    import -window root "$SHOTS/failed-$(date +%s).png" 2>/dev/null
    xdotool search --onlyvisible --name '.' getwindowname %@ 2>/dev/null | sed 's/^/  window: /' >&2
    echo "  focus: $(xdotool getwindowfocus getwindowname 2>/dev/null)" >&2
    kill -0 "$XVFB_PID" 2>/dev/null || { echo "  the X server is gone:" >&2; cat "$CONFIG/xvfb.log" >&2; }
    [ -n "${PID:-}" ] && kill "$PID" 2>/dev/null
    exit 1
}

# Starts the program with the given arguments; its process id is in PID.
start_program() {
    "$PROGRAM" "$@" &
    PID=$!
}

# The width of a window, 0 when it is gone.
window_width() {
    xdotool getwindowgeometry --shell "$1" 2>/dev/null | sed -n 's/^WIDTH=//p' | grep . || echo 0
}

# Waits for the main window once start-up is over: the only window with the program's title
# (the splash and the message boxes carry it too, and are smaller), and the one the program
# gave the keyboard to when the splash went.
wait_main_window() {
    for _ in $(seq 1 450); do
        ids=$(xdotool search --onlyvisible --name "$TITLE" 2>/dev/null)
        if [ "$(echo "$ids" | grep -c .)" = 1 ] && [ "$(window_width "$ids")" -ge 400 ] &&
            [ "$(xdotool getwindowfocus 2>/dev/null)" = "$ids" ]; then
            echo "$ids"
            return 0
        fi
        sleep 0.2
    done
    return 1
}

# Waits for a shown window whose title matches, and prints its id.
wait_window() {
    for _ in $(seq 1 300); do
        id=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | head -1)
        if [ -n "$id" ]; then
            echo "$id"
            return 0
        fi
        sleep 0.2
    done
    return 1
}

# Waits until no shown window's title matches.
wait_gone() {
    for _ in $(seq 1 300); do
        xdotool search --onlyvisible --name "$1" >/dev/null 2>&1 || return 0
        sleep 0.2
    done
    return 1
}

# Waits until a window is no longer shown.
wait_window_gone() {
    for _ in $(seq 1 300); do
        xdotool search --onlyvisible --name '.' 2>/dev/null | grep -qx "$1" || return 0
        sleep 0.2
    done
    return 1
}

wait_exit() {
    for _ in $(seq 1 300); do
        kill -0 "$1" 2>/dev/null || return 0
        sleep 0.2
    done
    return 1
}

# Waits for a message box of the program (its title, less wide than the main window), takes
# a screenshot of it, answers it with a key and waits until it has gone.
answer_box() {
    for _ in $(seq 1 450); do
        for id in $(xdotool search --onlyvisible --name "$TITLE" 2>/dev/null); do
            width=$(window_width "$id")
            [ "$width" -ge 600 ] && [ "${2:-}" = no-main ] &&
                fail "the main window was shown by the clean-up switch"
            [ "$width" -gt 0 ] && [ "$width" -lt 600 ] || continue
            xdotool windowfocus --sync "$id" || continue
            import -window root "$SHOTS/$1"
            xdotool key "$3"
            wait_window_gone "$id" || fail "the box of $1 did not close"
            return 0
        done
        sleep 0.2
    done
    fail "no box for $1"
}

# First run: empty settings.
start_program
WID=$(wait_main_window) || fail "the main window did not appear"
xdotool windowfocus --sync "$WID" || fail "cannot focus the main window"
import -window root "$SHOTS/01-first-start.png"
# Give the window a size of our own; the next run must come back with it.
xdotool windowsize --sync "$WID" 720 540
sleep 0.5
xdotool key alt+f
sleep 1
import -window root "$SHOTS/02-file-menu.png"
# &New shows the device selection; Escape closes it as its title-bar button would.
xdotool key n
DEVICE=$(wait_window '^Select Device$') || fail "File, New did not show the device selection"
sleep 0.5
import -window root "$SHOTS/03-new-device.png"
xdotool windowfocus --sync "$DEVICE"
xdotool key Escape
wait_gone '^Select Device$' || fail "Escape did not close the device selection"
xdotool windowfocus --sync "$WID"
xdotool key alt+f
sleep 0.5
# E&xit of the open File menu.
xdotool key x
wait_exit "$PID" || fail "File, Exit did not end the program"
wait "$PID"
[ -f "$SETTINGS" ] || fail "no settings were written to $SETTINGS"
grep -q '^\[Startup\]' "$SETTINGS" || fail "no Startup section in $SETTINGS"
grep -q '^Width=10800$' "$SETTINGS" || fail "Startup Width is not 720 pixels in twips: $(cat "$SETTINGS")"
grep -q '^Height=8100$' "$SETTINGS" || fail "Startup Height is not 540 pixels in twips"
grep -q '^SaveOnExit=1$' "$SETTINGS" || fail "SaveOnExit default missing"

# Second run: the settings of the first.
start_program
WID=$(wait_main_window) || fail "the main window did not appear the second time"
eval "$(xdotool getwindowgeometry --shell "$WID")"
[ "$WIDTH" = 720 ] && [ "$HEIGHT" = 540 ] || fail "second run is ${WIDTH}x${HEIGHT}, not 720x540"
xdotool windowfocus --sync "$WID"
import -window root "$SHOTS/04-second-start.png"
xdotool key alt+f
sleep 1
xdotool key x
wait_exit "$PID" || fail "File, Exit did not end the second run"
wait "$PID"
# Third run: the clean-up switch, in any letter case, asks, removes the settings and ends
# without ever showing the main window. Its boxes carry the program's title too, so the main
# window is told from them by its size.
start_program /CLEARregistry
answer_box 05-clear-question.png no-main Return
answer_box 06-clear-done.png no-main Return
wait_exit "$PID" || fail "the clean-up switch did not end the program"
wait "$PID"
grep -q 'Width=' "$SETTINGS" && fail "the settings are still there after the clean-up"
# Fourth run: a QX6105A document. File, New with the preselected QX6105A (OK), a loop
# frequency typed into the first field, Calculate by its key, and the power display shown.
start_program
WID=$(wait_main_window) || fail "the main window did not appear for the QX6105A run"
xdotool windowsize --sync "$WID" 1180 860
xdotool windowfocus --sync "$WID"
sleep 0.5
xdotool key alt+f
sleep 0.5
xdotool key n
DEVICE=$(wait_window '^Select Device$') ||
    fail "File, New did not show the device selection for the QX6105A run"
xdotool windowfocus --sync "$DEVICE"
xdotool key Return
wait_gone '^Select Device$' || fail "OK did not close the device selection"
xdotool windowfocus --sync "$WID"
sleep 1
import -window root "$SHOTS/07-qx6105a-new.png"
# A new document starts in the reference; Tab goes on to txtPLL(0), and Edit, Select All
# and typing replace its text.
xdotool key Tab
sleep 0.3
xdotool key ctrl+a
xdotool type --delay 80 "66.6667"
sleep 0.3
import -window root "$SHOTS/08-qx6105a-typed.png"
xdotool key alt+a
sleep 1.5
import -window root "$SHOTS/09-qx6105a-calculated.png"
# Help, Contents shows the manual, found beside the program.
xdotool key F1
HELP=$(wait_window '^Pendulon Help$') || fail "Help, Contents did not show the manual"
sleep 0.5
import -window root "$SHOTS/10-help-contents.png"
xdotool windowfocus --sync "$HELP"
xdotool key Escape
wait_gone '^Pendulon Help$' || fail "Escape did not close the manual"
xdotool windowfocus --sync "$WID"
# View, Power Calculation shows the floating power display over the document.
xdotool key alt+v
sleep 0.5
import -window root "$SHOTS/11-view-menu.png"
xdotool key Escape
sleep 0.3
# File, Exit: the question about the unsaved document is answered No.
xdotool key alt+f
sleep 0.5
xdotool key x
answer_box 12-save-question.png main n
wait_exit "$PID" || fail "File, Exit did not end the QX6105A run"
wait "$PID"
echo "end-to-end run passed; screenshots in $SHOTS"
exit 0
