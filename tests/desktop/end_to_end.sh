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
            # The server's files in /tmp ignore TMPDIR; the test command checks they go.
            [ -n "${PENDULON_TEST_DISPLAYS:-}" ] && echo "$number" >>"$PENDULON_TEST_DISPLAYS"
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
# Qt's runtime folder, which it would otherwise make in /tmp and leave there.
export XDG_RUNTIME_DIR="$CONFIG/runtime"
mkdir -m 700 "$XDG_RUNTIME_DIR"
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
# Fifth run: a QX7311 document at 1280x800. File, New, the QX7311 picked in the device
# selection, a CPU frequency typed into the first select code, Calculate by its key. The
# Calculate button is yellow while a Calculate is due and grey after it.
yellow_pixels() {
    eval "$(xdotool getwindowgeometry --shell "$WID")"
    # The hint line at the bottom is yellow too: leave it out.
    convert "$1" -crop "${WIDTH}x$((HEIGHT - 40))+${X}+${Y}" +repage -fuzz 20% \
        -fill black +opaque '#FFFF00' -fill white -opaque '#FFFF00' \
        -format '%[fx:round(mean*w*h)]' info:
}
start_program
WID=$(wait_main_window) || fail "the main window did not appear for the QX7311 run"
xdotool windowsize --sync "$WID" 1280 800
xdotool windowfocus --sync "$WID"
sleep 0.5
xdotool key alt+f
sleep 0.5
xdotool key n
DEVICE=$(wait_window '^Select Device$') || fail "File, New did not show the device selection for the QX7311 run"
xdotool windowfocus --sync "$DEVICE"
# The QX7311 option heads the second row of the device group.
xdotool mousemove --window "$DEVICE" 40 73 click 1
sleep 0.3
import -window root "$SHOTS/13-qx7311-choice.png"
xdotool key Return
wait_gone '^Select Device$' || fail "the device selection did not close"
xdotool windowfocus --sync "$WID"
sleep 1
import -window root "$SHOTS/14-qx7311-new.png"
# The first select code's frequency field, at the top left of the loops.
xdotool mousemove --window "$WID" 100 201 click 1
sleep 0.3
xdotool key Home shift+End
xdotool type --delay 80 "66.6"
xdotool key Tab
sleep 0.5
import -window root "$SHOTS/15-qx7311-typed.png"
[ "$(yellow_pixels "$SHOTS/15-qx7311-typed.png")" -gt 200 ] ||
    fail "typing a CPU frequency in the QX7311 document did not make a Calculate due"
xdotool key alt+a
sleep 1.5
import -window root "$SHOTS/16-qx7311-calculated.png"
[ "$(yellow_pixels "$SHOTS/16-qx7311-calculated.png")" -lt 50 ] ||
    fail "Calculate of the QX7311 document left a Calculate due"
xdotool key alt+f
sleep 0.5
xdotool key x
answer_box 17-qx7311-save-question.png main n
wait_exit "$PID" || fail "File, Exit did not end the QX7311 run"
wait "$PID"
# Sixth run: a QX5140 document. File, New, the QX5140 picked in the device selection; three
# frequencies typed; Calculate twice shows the second case; File, Save As
# writes the entry file of that case.
start_program
WID=$(wait_main_window) || fail "the main window did not appear for the QX5140 run"
xdotool windowmove --sync "$WID" 0 0
xdotool windowsize --sync "$WID" 1270 990
xdotool windowfocus --sync "$WID"
sleep 0.5
xdotool key alt+f
sleep 0.5
xdotool key n
DEVICE=$(wait_window '^Select Device$') || fail "File, New did not show the device selection for the QX5140 run"
xdotool windowfocus --sync "$DEVICE"
sleep 0.5
# The QX5140 option heads the fifth row of the device group.
xdotool mousemove --window "$DEVICE" 40 151 click 1
sleep 0.3
import -window root "$SHOTS/21-qx5140-device.png"
xdotool key Return
wait_gone '^Select Device$' || fail "the device selection did not close"
xdotool windowfocus --sync "$WID"
sleep 1
# The desired frequencies of CLKA, CLKB and CLKC, one under the other in the document window:
# each is clicked and typed into (Tab would go on through the row's actual value first).
for field in "226 50" "254 25" "281 12.5"; do
    set -- $field
    xdotool mousemove --window "$WID" 105 "$1" click 1
    sleep 0.3
    xdotool key End shift+Home
    xdotool type --delay 80 "$2"
    xdotool key Tab
    sleep 0.3
done
import -window root "$SHOTS/22-qx5140-typed.png"
xdotool key alt+a
sleep 1.5
import -window root "$SHOTS/23-qx5140-case1.png"
xdotool key alt+a
sleep 1.5
import -window root "$SHOTS/24-qx5140-case2.png"
xdotool key alt+f
sleep 0.5
xdotool key a
SUMMARY=$(wait_window 'Configuration$') || fail "Save As did not show the configuration summary"
xdotool windowfocus --sync "$SUMMARY"
xdotool key Return
SAVEAS=$(wait_window '^Save Entry File As$') || fail "Save As did not show the file dialog"
xdotool windowfocus --sync "$SAVEAS"
sleep 0.5
xdotool type --delay 40 "$CONFIG/qx5140.ent"
xdotool key Return
for _ in $(seq 1 25); do
    [ -s "$CONFIG/qx5140.ent" ] && break
    sleep 0.2
done
import -window root "$SHOTS/25-qx5140-saved.png"
ENT="$CONFIG/qx5140.ent"
[ -s "$ENT" ] || fail "Save As wrote no QX5140 entry file"
grep -q '^# s qx5140sc' "$ENT" || fail "the entry file is not of a QX5140 at 5 V"
grep -q '^# b 1' "$ENT" || fail "the entry file lacks the bonding option of Output Enable"
grep -q '^# f  50.00000 ;13' "$ENT" || fail "CLKA's 50 MHz is not in the entry file"
grep -q '^# f  25.00000 ;12' "$ENT" || fail "CLKB's 25 MHz is not in the entry file"
grep -q '^# f  12.50000 ;11' "$ENT" || fail "CLKC's 12.5 MHz is not in the entry file"
# The second case puts the three clocks on CPLL: /2, /4 and /8. The QX5140's loop runs at twice
# its target, so the fuses divide its clock by 1, 2 and 4: the codes of CPLL, CPLL/2 and CPLL/4
# (4, 5 and 6).
grep -q '^# i 4  *;26' "$ENT" || fail "the entry file does not hold the second case: $(grep ';2[678]' "$ENT")"
grep -q '^# i 5  *;27' "$ENT" || fail "CLKB of the second case is not in the entry file"
grep -q '^# i 6  *;28' "$ENT" || fail "CLKC of the second case is not in the entry file"
xdotool windowfocus --sync "$WID"
xdotool key alt+f
sleep 0.5
xdotool key x
wait_exit "$PID" || fail "File, Exit did not end the QX5140 run"
wait "$PID"
# Seventh run: a QX3350 document. File, New, the QX3350 option of the device selection clicked
# at its place in the dialog, OK; a VCO frequency typed, PLL/4 chosen, Calculate by its key.
start_program
WID=$(wait_main_window) || fail "the main window did not appear for the QX3350 run"
xdotool windowsize --sync "$WID" 1180 860
xdotool windowfocus --sync "$WID"
sleep 0.5
xdotool key alt+f
sleep 0.5
xdotool key n
DEVICE=$(wait_window '^Select Device$') || fail "File, New did not show the device selection for the QX3350 run"
eval "$(xdotool getwindowgeometry --shell "$DEVICE")"
# The option stands in the first column of the sixth row of devices.
xdotool mousemove --sync $((X + 28)) $((Y + 177)) click 1
sleep 0.5
import -window root "$SHOTS/26-qx3350-selected.png"
xdotool windowfocus --sync "$DEVICE"
xdotool key Return
wait_gone '^Select Device$' || fail "the device selection did not close"
xdotool windowfocus --sync "$WID"
sleep 1
import -window root "$SHOTS/27-qx3350-new.png"
# The VCO frequency, clicked at its place in the document window (Tab in reading order would
# go through the voltage and output options first).
xdotool mousemove --window "$WID" 113 186 click 1
sleep 0.3
xdotool key ctrl+a
xdotool type --delay 80 "120"
# The divisor list, clicked open, where PLL/4 is two entries down.
xdotool mousemove --window "$WID" 80 279 click 1
sleep 0.5
xdotool key Down Down Return
sleep 0.3
xdotool key alt+a
sleep 1.5
import -window root "$SHOTS/28-qx3350-calculated.png"
# File, Exit: the question about the unsaved document shows that a document is open.
xdotool key alt+f
sleep 0.5
xdotool key x
answer_box 29-qx3350-save-question.png main n
wait_exit "$PID" || fail "File, Exit did not end the QX3350 run"
wait "$PID"
# Eighth run: the clock selection wizard leads to a new document. Help, Clock Selection
# Wizard; more than one unrelated clock, four to six outputs, no real-time clock, factory
# programmed: a QX7312. Each page's first answer has the keyboard; Tab moves to the next one,
# Space takes it, Alt+N is Next and Alt+F Finish.
start_program
WID=$(wait_main_window) || fail "the main window did not appear for the wizard run"
xdotool windowsize --sync "$WID" 1180 860
xdotool windowfocus --sync "$WID"
sleep 0.5
xdotool key alt+h
sleep 0.5
# Contents, then Clock Selection Wizard.
xdotool key Down Return
WIZARD=$(wait_window '^Clock Selection Wizard$') || fail "Help did not show the wizard"
xdotool windowfocus --sync "$WIZARD"
sleep 0.5
import -window root "$SHOTS/31-wizard-first-page.png"
# Yes: more than one unrelated clock.
xdotool key space
sleep 0.3
xdotool key alt+n
sleep 0.5
# "4, 5 or 6" outputs.
xdotool key Tab space
sleep 0.3
xdotool key alt+n
sleep 0.5
# No real-time clock.
xdotool key Tab space
sleep 0.3
xdotool key alt+n
sleep 0.5
# Factory Programmed.
xdotool key Tab space
sleep 0.5
import -window root "$SHOTS/32-wizard-finish-page.png"
xdotool key alt+f
wait_gone '^Clock Selection Wizard$' || fail "Finish did not close the wizard"
xdotool windowfocus --sync "$WID"
sleep 1
import -window root "$SHOTS/33-wizard-document.png"
# File, Configuration Info names the device of the new document.
xdotool key alt+f
sleep 0.5
xdotool key i
SUMMARY=$(wait_window '^QX7312 Configuration$') ||
    fail "the wizard did not open a QX7312 document"
xdotool windowfocus --sync "$SUMMARY"
sleep 0.3
import -window root "$SHOTS/34-wizard-document-summary.png"
xdotool key Return
wait_gone '^QX7312 Configuration$' || fail "the summary did not close"
xdotool windowfocus --sync "$WID"
xdotool key alt+f
sleep 0.5
xdotool key x
# The new document is unchanged: File, Exit asks nothing.
wait_exit "$PID" || fail "File, Exit did not end the wizard run"
wait "$PID"
echo "end-to-end run passed; screenshots in $SHOTS"
exit 0
