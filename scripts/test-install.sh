#!/usr/bin/env bash
# Checks Pendulon as an installed desktop application: the tree `cmake --install` makes, the
# desktop entry, AppStream metainfo, icon and file types as the desktop's own tools read them,
# and the Debian package: its control data, its files, and its programs run from where the
# package puts them. Usage: test-install.sh [build folder] (default build; configured and built).
set -euo pipefail
cd "$(dirname "$0")/.."
repo=$PWD
build=${1:-build}
app_id=com.varnhol.Pendulon
version=$(sed -n 's/^project(Pendulon VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
[ -n "$version" ] || { echo "test-install: no project version in CMakeLists.txt" >&2; exit 1; }

work=$(mktemp -d "${TMPDIR:-/tmp}/install-check.XXXXXX")
xvfb_pid=
app_pid=
cleanup() {
    [ -n "$app_pid" ] && kill "$app_pid" 2>/dev/null
    [ -n "$xvfb_pid" ] && kill "$xvfb_pid" 2>/dev/null
    rm -rf "$work"
}
trap cleanup EXIT

fail() {
    echo "test-install: FAIL: $*" >&2
    exit 1
}
step() { echo "test-install: $*"; }
# expect <what> <expected> <actual>
expect() {
    [ "$2" = "$3" ] || fail "$1: expected '$2', got '$3'"
}

# Every file of an installed Pendulon below the prefix, and nothing else: no tests, benchmarks
# or fuzz targets.
expected_files() {
    printf '%s\n' \
        bin/pendulon \
        bin/pendulon-cli \
        share/applications/$app_id.desktop \
        share/doc/pendulon/manual.md \
        share/icons/hicolor/scalable/apps/$app_id.svg \
        share/metainfo/$app_id.metainfo.xml \
        share/mime/packages/$app_id.xml \
        share/pendulon/manual.md | sort
}

# Checks the files of an installed tree below the prefix $1.
check_tree() {
    local prefix=$1
    local found
    found=$(cd "$prefix" && find . -type f -o -type l | sed 's|^\./||' | sort)
    [ "$found" = "$(expected_files)" ] ||
        fail "files below $prefix differ from the expected list:
$(diff <(expected_files) <(echo "$found") || true)"
    for program in pendulon pendulon-cli; do
        [ -x "$prefix/bin/$program" ] || fail "$prefix/bin/$program is not executable"
    done
    cmp -s docs/manual.md "$prefix/share/pendulon/manual.md" || fail "share/pendulon/manual.md is not the manual"
    cmp -s docs/manual.md "$prefix/share/doc/pendulon/manual.md" || fail "share/doc/pendulon/manual.md is not the manual"

    # The desktop tools' own checks.
    desktop-file-validate "$prefix/share/applications/$app_id.desktop" ||
        fail "desktop-file-validate rejects the desktop entry"
    appstreamcli validate --no-net "$prefix/share/metainfo/$app_id.metainfo.xml" >"$work/appstream.log" ||
        fail "appstreamcli rejects the metainfo: $(cat "$work/appstream.log")"
    # The metainfo with what it names: the desktop entry it launches.
    appstreamcli validate-tree --no-net "$prefix" >"$work/appstream.log" || fail "appstreamcli rejects the installed tree: $(cat "$work/appstream.log")"
    xmllint --noout "$prefix/share/mime/packages/$app_id.xml" || fail "the MIME package is not well-formed XML"
    xmllint --noout "$prefix/share/icons/hicolor/scalable/apps/$app_id.svg" || fail "the icon is not well-formed SVG"

    # What the entry promises is there: the icon it names, the program it starts, a file
    # argument, the types of the MIME package, an electronics engineer's menu.
    local entry=$prefix/share/applications/$app_id.desktop
    local icon exec types declared
    icon=$(sed -n 's/^Icon=//p' "$entry")
    [ -f "$prefix/share/icons/hicolor/scalable/apps/$icon.svg" ] || fail "the icon '$icon' of the entry is not installed"
    exec=$(sed -n 's/^Exec=//p' "$entry")
    expect "Exec of the desktop entry" "pendulon %f" "$exec"
    [ -x "$prefix/bin/${exec%% *}" ] || fail "the entry's program ${exec%% *} is not in bin"
    types=$(sed -n 's/^MimeType=//p' "$entry" | tr ';' '\n' | sed '/^$/d' | sort)
    declared=$(xmllint --xpath '//*[local-name()="mime-type"]/@type' \
        "$prefix/share/mime/packages/$app_id.xml" | sed 's/.*type="\([^"]*\)".*/\1/' | sort)
    expect "MIME types of the entry and the MIME package" "$declared" "$types"
    expect "number of MIME types" 2 "$(echo "$types" | grep -c .)"
    for category in Development Electronics Engineering; do
        grep -q "^Categories=.*\b$category;" "$entry" || fail "the entry is not in the $category menu"
    done
    # The metainfo carries the project's version.
    grep -q "<release version=\"$version\"" "$prefix/share/metainfo/$app_id.metainfo.xml" ||
        fail "the metainfo does not name version $version"
}

# Builds a MIME database in $1 from the installed package of $2 (and the system's own types
# when $3 is "with-system"), then asks xdg-mime for the types of the samples.
check_file_types() {
    local data=$1 prefix=$2 system=$3
    mkdir -p "$data/mime/packages" "$data/applications"
    cp "$prefix/share/mime/packages/$app_id.xml" "$data/mime/packages/"
    if [ "$system" = with-system ]; then
        # The machine's freedesktop.org types, where *.ent is also an XML entity: ours must win.
        cp /usr/share/mime/packages/freedesktop.org.xml "$data/mime/packages/"
    fi
    local log
    log=$(update-mime-database "$data/mime" 2>&1) || fail "update-mime-database failed: $log"
    # It warns about mistakes in the package without failing; there must be none.
    local complaints
    complaints=$(grep -v -e "not in the search path" -e "XDG_DATA_HOME and XDG_DATA_DIRS" \
        -e "environment variables, so applications may not" -e "be able to find it until you set them" \
        -e "directories currently searched are" -e '^- /' -e '^$' <<<"$log" || true)
    [ -z "$complaints" ] || fail "update-mime-database complains: $log"
    cp "$prefix/share/applications/$app_id.desktop" "$data/applications/"
    update-desktop-database "$data/applications" || fail "update-desktop-database failed"

    local backends=(generic)
    command -v gio >/dev/null && backends+=(GNOME)
    for backend in "${backends[@]}"; do
        local desktop=
        [ "$backend" = GNOME ] && desktop=GNOME
        query() {
            env -u KDE_FULL_SESSION -u GNOME_DESKTOP_SESSION_ID -u DESKTOP_SESSION \
                XDG_DATA_HOME="$data" XDG_DATA_DIRS="$data" XDG_CONFIG_HOME="$work/config" \
                XDG_CONFIG_DIRS="$work/config" XDG_CURRENT_DESKTOP="$desktop" xdg-mime query "$@"
        }
        expect "type of an entry file ($backend, $system)" application/x-pendulon-entry \
            "$(query filetype "$work/files/sample.ent")"
        expect "type of an entry file with a blank in its name ($backend, $system)" \
            application/x-pendulon-entry "$(query filetype "$work/files/my design.ent")"
        # Without the header the program writes, the name alone decides.
        expect "type of an entry file without header ($backend, $system)" \
            application/x-pendulon-entry "$(query filetype "$work/files/no-header.ent")"
        expect "type of a fuse map ($backend, $system)" application/x-jedec \
            "$(query filetype "$work/files/sample.jed")"
        if [ "$system" = with-system ]; then
            # Other files keep their own types.
            expect "type of a text file ($backend)" text/plain "$(query filetype "$work/files/notes.txt")"
        fi
        if [ "$backend" = generic ]; then
            # A double-click on an entry file starts Pendulon.
            expect "application for entry files" "$app_id.desktop" \
                "$(query default application/x-pendulon-entry)"
            expect "application for fuse maps" "$app_id.desktop" "$(query default application/x-jedec)"
        fi
    done
}

# Starts the desktop entry of the tree $1 as a menu or file manager does, optionally with a
# file, on an X server of our own, and waits for the main window. Sets app_pid and main_window.
# data_dirs, when set, replaces the desktop's data folders.
title='^Pendulon\(tm\) [0-9]+\.[0-9]+$'
launch() {
    local prefix=$1
    shift
    env PATH="$prefix/bin:$PATH" XDG_DATA_DIRS="${data_dirs:-$prefix/share:/usr/share}" \
        gio launch "$prefix/share/applications/$app_id.desktop" "$@" >"$work/launch.log" 2>&1 ||
        fail "gio launch failed: $(cat "$work/launch.log")"
    main_window=
    for _ in $(seq 1 450); do
        for id in $(xdotool search --onlyvisible --name "$title" 2>/dev/null); do
            width=$(xdotool getwindowgeometry --shell "$id" | sed -n 's/^WIDTH=//p')
            if [ "${width:-0}" -ge 600 ]; then
                main_window=$id
                break 2
            fi
        done
        sleep 0.2
    done
    [ -n "$main_window" ] || fail "the main window did not appear"
    app_pid=$(xdotool getwindowpid "$main_window")
    # The program running is the installed one.
    expect "program of the main window" "$prefix/bin/pendulon" "$(readlink "/proc/$app_pid/exe")"
}

wait_window() {
    local name=$1 id=
    for _ in $(seq 1 300); do
        id=$(xdotool search --onlyvisible --name "$name" 2>/dev/null | head -1)
        [ -n "$id" ] && break
        sleep 0.2
    done
    echo "$id"
}

# Whether the window $1 carries an icon for the desktop to show.
has_icon() {
    local property
    property=$(xprop -id "$1" _NET_WM_ICON) || return 1
    grep -q "^_NET_WM_ICON(CARDINAL) = " <<<"$property"
}

stop_app() {
    kill "$app_pid" 2>/dev/null || true
    for _ in $(seq 1 100); do
        kill -0 "$app_pid" 2>/dev/null || break
        sleep 0.1
    done
    app_pid=
}

check_desktop_program() {
    local prefix=$1
    mkdir -p "$work/x" "$work/runtime" "$work/user-config" "$work/system-config"
    chmod 700 "$work/runtime"
    # -noreset: between two starts of the program no client is left, and a server that resets
    # then refuses the next one for a moment.
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -noreset 3>"$work/x/display" 2>"$work/x/xvfb.log" &
    xvfb_pid=$!
    for _ in $(seq 1 300); do
        [ -s "$work/x/display" ] && break
        sleep 0.1
    done
    [ -s "$work/x/display" ] || fail "the X server did not start: $(cat "$work/x/xvfb.log")"
    DISPLAY=":$(tr -d '[:space:]' <"$work/x/display")"
    export DISPLAY
    # The server's files in /tmp ignore TMPDIR; the test command checks they go.
    if [ -n "${PENDULON_TEST_DISPLAYS:-}" ]; then
        echo "${DISPLAY#:}" >>"$PENDULON_TEST_DISPLAYS"
    fi
    export XDG_CONFIG_HOME="$work/user-config" XDG_CONFIG_DIRS="$work/system-config"
    export XDG_RUNTIME_DIR="$work/runtime" QT_QPA_PLATFORM=xcb
    for _ in $(seq 1 150); do
        xdotool getdisplaygeometry >/dev/null 2>&1 && break
        sleep 0.2
    done

    # From the menu: the program opens, and the desktop can tell its window by the entry's
    # StartupWMClass.
    launch "$prefix"
    local wm_class
    wm_class=$(sed -n 's/^StartupWMClass=//p' "$prefix/share/applications/$app_id.desktop")
    grep -qx "$main_window" <<<"$(xdotool search --class "^$wm_class\$")" ||
        fail "the main window's class is not '$wm_class'"
    # The window shows its icon (drawn from the SVG by Qt's SVG plugin): the installed one, and
    # the program's own where no data folder holds the hicolor theme's index (a desktop without
    # the hicolor icon theme).
    local svg_plugin
    svg_plugin="$(qtpaths6 --query QT_INSTALL_PLUGINS 2>/dev/null)/iconengines/libqsvgicon.so"
    if [ -e "$svg_plugin" ] && command -v xprop >/dev/null; then
        has_icon "$main_window" || fail "the main window has no icon"
        stop_app
        data_dirs="$prefix/share" launch "$prefix"
        has_icon "$main_window" || fail "the main window has no icon where the desktop has no hicolor theme"
    fi
    stop_app

    # With a file, as a double-click does: the file opens (its configuration summary first),
    # then Help, Contents shows the installed manual.
    launch "$prefix" "$work/files/my design.ent"
    local summary
    summary=$(wait_window '^QX4860F Configuration$')
    [ -n "$summary" ] || fail "the entry file did not open"
    xdotool windowfocus --sync "$summary"
    xdotool key Return
    # The note about PPM values that opening shows.
    local note=
    for _ in $(seq 1 300); do
        for id in $(xdotool search --onlyvisible --name "$title" 2>/dev/null); do
            width=$(xdotool getwindowgeometry --shell "$id" | sed -n 's/^WIDTH=//p')
            if [ "${width:-0}" -lt 600 ]; then
                note=$id
                break 2
            fi
        done
        sleep 0.2
    done
    [ -n "$note" ] || fail "the opened document's note did not appear"
    xdotool windowfocus --sync "$note"
    xdotool key Return
    sleep 0.5
    xdotool windowfocus --sync "$main_window"
    xdotool key F1
    [ -n "$(wait_window '^Pendulon Help$')" ] || fail "Help, Contents did not show the installed manual"
    stop_app

    # From a terminal in the file's folder: pendulon FILE.ent.
    (cd "$work/files" && exec "$prefix/bin/pendulon" "my design.ent") &
    app_pid=$!
    [ -n "$(wait_window '^QX4860F Configuration$')" ] || fail "pendulon FILE.ent did not open the file"
    stop_app
    kill "$xvfb_pid" 2>/dev/null || true
    xvfb_pid=
}

mkdir -p "$work/files" "$work/config"
cp tests/data/entry/QX4860F_lean.ent "$work/files/sample.ent"
cp tests/data/entry/QX4860F_lean.ent "$work/files/my design.ent"
cp tests/data/entry/QX4860F.jed "$work/files/sample.jed"
tail -n +4 tests/data/entry/QX4860F_lean.ent >"$work/files/no-header.ent"
echo "Notes" >"$work/files/notes.txt"

step "cmake --install into a DESTDIR"
DESTDIR="$work/destdir" cmake --install "$build" --prefix /usr >"$work/install.log" ||
    fail "cmake --install failed: $(cat "$work/install.log")"
check_tree "$work/destdir/usr"

step "file types with update-mime-database and xdg-mime"
check_file_types "$work/types-alone" "$work/destdir/usr" alone
check_file_types "$work/types-system" "$work/destdir/usr" with-system

step "the Debian package"
cmake --build "$build" --target package >"$work/package.log" 2>&1 ||
    fail "building the package failed: $(tail -20 "$work/package.log")"
deb="$build/pendulon_${version}_$(dpkg --print-architecture).deb"
[ -f "$deb" ] || fail "no $deb"
dpkg-deb --info "$deb" >"$work/info.txt" || fail "dpkg-deb --info cannot read $deb"
field() { sed -n "s/^ $1: //p" "$work/info.txt"; }
expect "Package" pendulon "$(field Package)"
expect "Version" "$version" "$(field Version)"
expect "Architecture" "$(dpkg --print-architecture)" "$(field Architecture)"
expect "Section" electronics "$(field Section)"
for library in libqt6widgets6 libqt6printsupport6 libqt6gui6 libqt6core6 libstdc++6 libc6; do
    grep -q "^ *$library " <<<"$(field Depends | tr ',' '\n')" || fail "the package does not depend on $library: $(field Depends)"
done
contents=$(dpkg-deb --contents "$deb" | awk '$1 !~ /^d/ {print $6}' | sed 's|^\./usr/||' | sort)
[ "$contents" = "$(expected_files)" ] ||
    fail "the package's files differ from the expected list:
$(diff <(expected_files) <(echo "$contents") || true)"
if command -v apt-get >/dev/null; then
    # apt can install it here: every dependency is known.
    apt-get install --simulate "$(realpath "$deb")" >"$work/apt.log" 2>&1 ||
        fail "apt-get cannot install the package: $(cat "$work/apt.log")"
    grep -q "^Inst pendulon " "$work/apt.log" || fail "apt-get would not install pendulon: $(cat "$work/apt.log")"
fi

step "the package unpacked into a throw-away root"
dpkg -x "$deb" "$work/root" || fail "dpkg -x failed"
root_prefix="$work/root/usr"
check_tree "$root_prefix"
for program in pendulon pendulon-cli; do
    grep -q ", stripped" <<<"$(file -L "$root_prefix/bin/$program")" || fail "$program is not stripped"
    # Nothing the package ships knows where it was built.
    if grep -q -a -F "$repo" "$root_prefix/bin/$program"; then
        fail "$program holds the path of the build machine's checkout"
    fi
done

step "the installed pendulon-cli"
grep -q "^Commands:" <<<"$("$root_prefix/bin/pendulon-cli" --help)" || fail "pendulon-cli --help"
"$root_prefix/bin/pendulon-cli" jed "$work/files/my design.ent" -o "$work/files/out.jed" 2>"$work/cli.log" ||
    fail "pendulon-cli jed failed: $(cat "$work/cli.log")"
cmp -s "$work/files/out.jed" tests/data/entry/QX4860F.jed || fail "the installed pendulon-cli wrote a different fuse map"
# The fuse map it wrote has the declared type.
expect "type of the written fuse map" application/x-jedec \
    "$(XDG_DATA_HOME="$work/types-system" XDG_DATA_DIRS="$work/types-system" xdg-mime query filetype "$work/files/out.jed")"
# A missing file is an error, and writes nothing.
if "$root_prefix/bin/pendulon-cli" jed "$work/files/missing.ent" -o "$work/files/missing.jed" 2>/dev/null; then
    fail "pendulon-cli jed of a missing file succeeded"
fi
[ ! -e "$work/files/missing.jed" ] || fail "pendulon-cli wrote a fuse map of a missing file"
# A user who is not root cannot write the program's folder: a vector from a new entry file makes
# its temporary file in that user's temporary folder, and removes it. The check runs as the user
# nobody, who must be able to reach the installed program through the folders above it.
as_nobody() { setpriv --reuid=65534 --regid=65534 --clear-groups env -i PATH=/usr/bin:/bin "$@"; }
if [ "$(id -u)" != 0 ] || ! command -v setpriv >/dev/null; then
    step "skipped: pendulon-cli as a user who is not root (needs root and setpriv)"
else
    mkdir -m 1777 "$work/user" "$work/user/tmp"
    chmod o+x "$work"
    if ! as_nobody test -x "$root_prefix/bin/pendulon-cli"; then
        step "skipped: pendulon-cli as a user who is not root ($work cannot be reached by others;" \
            "give TMPDIR and the folders above it o+x)"
    else
        step "the installed pendulon-cli as a user who is not root"
        ! as_nobody test -w "$root_prefix/bin" || fail "the user nobody can write $root_prefix/bin"
        as_nobody TMPDIR="$work/user/tmp" HOME="$work/user" \
            "$root_prefix/bin/pendulon-cli" new QX4860 --click cmdCalculate --jed "$work/user/v.jed" \
            >"$work/user.log" 2>&1 || fail "pendulon-cli as a user failed: $(cat "$work/user.log")"
        [ -s "$work/user/v.jed" ] || fail "pendulon-cli as a user wrote no fuse map"
        [ -z "$(ls -A "$work/user/tmp")" ] || fail "pendulon-cli as a user left $(ls "$work/user/tmp")"
    fi
fi

if command -v Xvfb >/dev/null && command -v xdotool >/dev/null && command -v gio >/dev/null; then
    step "the installed desktop program under Xvfb"
    check_desktop_program "$root_prefix"
else
    step "SKIPPED the desktop program: Xvfb, xdotool or gio is missing"
fi

step "passed"
