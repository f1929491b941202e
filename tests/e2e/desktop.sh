#!/usr/bin/env bash
# The board of the demo quiz on a desktop with two screens, 1280x720 for the console and 1920x1080
# for the audience: plays it by keyboard and judges the pictures of both screens.
#   desktop.sh openbox|xfwm4|mutter|kwin|sway-xwayland|sway-wayland [PICTURES]
source "$(dirname "$0")/../driver/driver.sh"

# open_x11 WINDOW_MANAGER...: a graphics card without hardware, and two screens on it.
open_x11() {
    cat >"$place/xorg.conf" <<'END'
Section "Monitor" Identifier "DUMMY0" HorizSync 5-1000 VertRefresh 5-200
    Option "PreferredMode" "1280x720"
EndSection
Section "Monitor" Identifier "DUMMY1"
    Option "Enable" "true"
    Option "PreferredMode" "1920x1080"
    Option "RightOf" "DUMMY0"
EndSection
Section "Device" Identifier "card" Driver "dummy" VideoRam 65536 EndSection
Section "Screen" Identifier "desk" Device "card" Monitor "DUMMY0"
    SubSection "Display" Virtual 3200 1080 EndSubSection
EndSection
END
    run_display Xorg -config "$place/xorg.conf" -configdir "$place" -logfile "$place/xorg.log" \
        -novtswitch -sharevts
    open_session_bus
    run_window_manager "${bus[@]}" NO_AT_BRIDGE=1 "$@"
    xdotool mousemove 200 200 # some open a window where the pointer is
    areas=([1]=1280x720+0+0 [2]=1920x1080+1280+0)
    photograph_screen() { import -silent -window root -crop "${areas[$1]}" +repage "$2"; }
    turned_to() {
        xdotool search --onlyvisible --name "^$1" windowactivate && has_keyboard "$1*"
    } 2>/dev/null
    strike() { press "$1"; }
}

look() {
    photograph_screen 1 "$view-screen-1.png"
    photograph_screen 2 "$view-screen-2.png"
}
is_console() { [[ $(convert "$1" -fill black +opaque "$ink" -format '%[fx:mean>0]' info:) == 1 ]]; }

# board_is_on SCREEN COLOURS: it fills the screen, has these lines, which begin and end just inside the
# screen's edges, and the console is to be seen unless it is on the same screen.
board_is_on() {
    local wall=$view-screen-$1.png
    look
    [[ $(colors_down West 20 "$wall") == "$2" && $(colors_down East 10 "$wall") == "$2" &&
        $(colors_down East 4 "$wall") == "$behind" ]] &&
        { (($1 == 1)) || is_console "$view-screen-1.png"; }
}
board_is_gone() {
    look
    [[ $(colors_down West 20 "$view-screen-2.png") != *$pair_a* ]] &&
        is_console "$view-screen-1.png"
}

# sees NAME COMMAND...: waits until the screens show it.
sees() {
    view=$pictures/$((++pictures_taken))-$1
    within_patience "the screens of $view" "${@:2}"
}

begin "$1" "${2:-$project/build/e2e/desktop-$1}"
new_folder quiz "$project/scripts/demo.sql"
behind='#000040' # no desktop's own colour, so that the board's edges are seen
printf '[Application]\nBackGround=%d\n' 0x400000 >"$folder/Rankelo.INI"
session=() platform=xcb
case $1 in
mutter) open_x11 mutter --x11 --sm-disable ;;
kwin) open_x11 kwin_x11 ;;
sway-*) source "$project/scripts/sway.sh" ;;
*) open_x11 "$1" ;;
esac
[[ $1 != sway-wayland ]] || platform=wayland
start_program "${session[@]}" QT_QPA_PLATFORM=$platform
within_patience "the console" turned_to "Rankelo - "

strike F8
below="$behind $pair_b $behind $pair_a $behind $pair_b $behind $pair_a $behind $pair_a"
below+=" $behind $pair_b $behind $pair_a $behind $pair_b $behind"
if [[ $1 == sway-xwayland ]]; then
    # It opens every window where the keyboard is; the host then moves the board.
    sees covering board_is_on 1 "$below"
    swaymsg '[title="^Rankelo Results"] move container to output HEADLESS-2' >/dev/null
fi
sees hidden board_is_on 2 "$below"
for revealed in "3 $behind $third" "2 $behind $second $behind $second" "1 $behind $first"; do
    strike "${revealed%% *}"
    below="${revealed#* } $below"
    sees "${revealed%% *}" board_is_on 2 "$below"
    within_patience "the console" turned_to "Rankelo - "
done
within_patience "the board" turned_to "Rankelo Results"
strike Escape
sees gone board_is_gone
