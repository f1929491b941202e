# Drives the real program as a person does: windows on a virtual display, a keyboard, eyes. Sourced by
# the whole-program tests and by the scripts that take pictures. Every step waits until the program
# shows what is expected, and fails when that takes longer than a person's patience.
set -euo pipefail
export LC_ALL=C.UTF-8

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
app_folder=${RANKELO_APP_DIR:-$project/build/Rankelo}
probe=${RANKELO_FOCUS_PROBE:-$project/build/tests/driver} # the folder of FocusProbe's plugin
patience=60  # seconds
folder=      # the application folder that the program runs from
program=     # its process
keystroke=20 # milliseconds; half of them the key is down
as_user=()   # a command that runs it as another user
console='Rankelo - \[*.*.*\]' # its title names the version
# The board's colours: behind it, on the podium, of every other line below it; and that of every
# screen's icons.
black='#000000' first='#00FF00' second='#008000' third='#004000'
pair_a='#C04000' pair_b='#804000' ink='#1F2A33'

# begin NAME [PICTURES]: makes a place for everything that the run leaves behind, except the
# pictures, which go to the folder PICTURES.
begin() {
    name=$1
    pictures=${2:-$project/build/e2e/$name}
    pictures_taken=10 # so that their names sort
    place=$(mktemp -d "${TMPDIR:-/tmp}/rankelo-$name.XXXXXX")
    display_processes=()
    rm -rf "$pictures"
    mkdir -p "$pictures" "$place"/{home,config,tmp,runtime}
    chmod 755 "$place"
    chmod 700 "$place/runtime"
    quiet_place=(HOME="$place/home" XDG_CONFIG_HOME="$place/config" XDG_RUNTIME_DIR="$place/runtime"
        TMPDIR="$place/tmp" PATH="$PATH" LC_ALL="$LC_ALL")
    trap 'finish $?' EXIT
    trap 'exit 1' INT TERM HUP
}

finish() {
    trap - EXIT INT TERM HUP
    kill_program
    close_display
    chmod -R u+w "$place" # a test may have taken its own rights away
    rm -rf "$place"
    exit "$1"
}

# fail TEXT: ends the run; shows what the program said and the screen as it is.
fail() {
    echo "$name: $*" >&2
    if [[ -n $program ]]; then
        find "$place"/std* "$place/tmp" -type f -size +0 -exec tail -v -n 50 {} + >&2
    fi
    import -silent -window root "$pictures/failure.png" &&
        echo "-- the screen: $pictures/failure.png" >&2
    exit 1
}

# within_patience WHAT COMMAND...: waits until the command succeeds.
within_patience() {
    local end=$((SECONDS + patience)) answer=
    until "${@:2}"; do
        ((SECONDS < end)) || fail "waited in vain for $1${answer:+, met $answer}"
        sleep 0.05
    done
}

# comes_to ANSWER COMMAND...: waits until the answer is what the command says.
comes_to() { within_patience "$1 from ${*:2}" says "$@"; }
says() { answer=$("${@:2}" 2>&1) && [[ $answer == "$1" ]]; }

# open_display SIZE: a screen such as 1280x720, with a window manager.
open_display() {
    close_display
    run_display Xvfb -screen 0 "$1x24"
    run_window_manager openbox --sm-disable
}

# run_display SERVER...: an X server, of 96 dots an inch.
run_display() {
    "$@" -displayfd 3 -dpi 96 -noreset -ac 3>"$place/display" 2>"$place/display.log" &
    display_processes=($!)
    within_patience "a display" test -s "$place/display"
    DISPLAY=:$(<"$place/display")
    export DISPLAY
}

# run_window_manager [NAME=VALUE...] COMMAND...
run_window_manager() {
    env "${quiet_place[@]}" "$@" >>"$place/display.log" 2>&1 &
    display_processes+=($!)
    within_patience "the window manager" window_manager_is_there
}
window_manager_is_there() { xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; }

# open_session_bus: after a display has been opened; `bus` then tells programs where it is.
open_session_bus() {
    env "${quiet_place[@]}" dbus-daemon --session --nofork --print-address=3 3>"$place/bus" \
        2>>"$place/display.log" &
    display_processes+=($!)
    within_patience "a session bus" test -s "$place/bus"
    bus=(DBUS_SESSION_BUS_ADDRESS="$(<"$place/bus")")
}

close_display() {
    { kill "${display_processes[@]}"; wait "${display_processes[@]}"; } 2>/dev/null || true
    display_processes=()
    rm -f "$place/display"
}

# new_folder NAME [SQL_FILE]: a copy of the application folder with an empty quiz, or with the one
# that the statements of the file make. Never touches the quiz in the real folder.
new_folder() {
    folder=$place/$1
    mkdir -p "$folder"
    find "$app_folder" -mindepth 1 -maxdepth 1 ! -name 'Rankelo.MDB*' ! -name Rankelo.INI \
        -exec cp -r {} "$folder" \;
    cat "$project/src/data/schema.sql" ${2:+"$2"} | sqlite3 -bail "$folder/Rankelo.MDB"
}

# start_program [NAME=VALUE...]: starts the program in its folder; its texts go to files.
start_program() {
    local platform=xcb drive= command=("${as_user[@]}" "$folder/Rankelo")
    if [[ -e $folder/Rankelo.exe ]]; then
        platform=windows drive=Z:
        keystroke=500 # Wine takes a key that was let go while no window was there for one held down
        # The folder must have every DLL that it needs.
        command=(env WINEPATH= "$project/packaging/windows/in-wine" "$folder/Rankelo.exe")
        install -D -t "$folder/plugins/generic" "$probe"/generic/* # Wine keeps Qt's variables back
    fi
    # The folder's name may hold what env would take for a variable.
    env -i "${quiet_place[@]}" QT_QPA_PLATFORM=$platform DISPLAY="$DISPLAY" \
        QT_PLUGIN_PATH="$probe" FOCUS_ANSWERS="$drive$place/tmp/focus" "$@" \
        sh -c 'exec "$@"' - "${command[@]}" -plugin focusprobe >"$place/stdout" 2>"$place/stderr" &
    program=$!
}

is_splash_there() { xdotool search --onlyvisible --name '^Rankelo$'; } >/dev/null 2>&1
is_gone() { ! kill -0 "$program" 2>/dev/null; }

# ended_with STATUS: waits until the program has ended, and expects its exit status.
ended_with() {
    local status=0
    within_patience "the end of the program" is_gone
    wait "$program" || status=$?
    program=
    [[ $status == "$1" ]] || fail "the program ended with exit status $status, not $1"
}

said_nothing() { [[ ! -s $place/stderr ]] || fail "the program said something"; }

kill_program() {
    { kill -KILL "$program"; wait "$program"; } 2>/dev/null || true
    program=
}

# window TITLE: waits until the window with this title (a pattern of the shell) has the keyboard.
window() { within_patience "the window \"$1\" to have the keyboard" has_keyboard "$1"; }

has_keyboard() {
    # shellcheck disable=SC2053 # a pattern
    [[ $(xdotool getwindowfocus getwindowname 2>/dev/null) == $1 ]] && return
    is_gone && fail "the program ended before the window \"$1\" came"
    return 1
}

# focus NAME: presses Tab until the control of this name has the focus, in the window that has the
# keyboard; a control more or less on the way changes nothing.
focus() {
    local first
    ask_focus
    first=$focused
    until [[ $focused == "$1" ]]; do
        press Tab
        ask_focus
        [[ $focused != "$first" ]] || fail "Tab comes round to $focused without meeting $1"
    done
}

ask_focus() {
    rm -f "$place/tmp/focus"
    press Pause
    within_patience "the probe's answer" test -s "$place/tmp/focus"
    focused=$(<"$place/tmp/focus")
}

press() { xdotool key --delay "$keystroke" "$@"; }
enter_text() { xdotool type --delay 20 -- "$1"; }
# go_to TITLE KEY...: presses the keys that lead to this window, and waits for it.
go_to() {
    press "${@:2}"
    window "$1"
}

# stored QUERY ANSWER: waits until the database gives the answer, one line a row.
stored() { comes_to "$2" sqlite3 -readonly -cmd '.timeout 5000' "$folder/Rankelo.MDB" "$1"; }

# colors_down EDGE X [PICTURE]: what the eye meets going down a picture, or the screen, X pixels from
# its West or East edge.
colors_down() {
    convert "${3:-x:root}" -gravity "$1" -crop "1x0+$2+0" +repage -depth 8 txt:- |
        grep -o '#[0-9A-F]\{6\}' | uniq | paste -sd ' '
}
