#!/usr/bin/env bash
# Real hands at the real program: keys that are held too long, a double click where one is meant, a
# turn of the wheel in passing; and a sheet of scores typed down the list.
source "$(dirname "$0")/../driver/driver.sh"

# hold KEY: long enough for the X server to repeat it many times; returns when all have arrived.
hold() {
    xdotool keydown "$1"
    sleep 1.2
    xdotool keyup "$1"
    ask_focus
}

# point X Y: puts the mouse on the window with the keyboard, in percent of its size.
point() {
    local WINDOW X Y WIDTH HEIGHT SCREEN
    eval "$(xdotool getwindowfocus getwindowgeometry --shell)"
    xdotool mousemove $((X + WIDTH * $1 / 100)) $((Y + HEIGHT * $2 / 100))
}

# typed KEY...: a key that commands, counted.
typed() {
    press "$@"
    commands=$((commands + $#))
}

scores="SELECT group_concat(Score || iif(Joker = 1, 'j', ''), ' ') FROM
        (SELECT * FROM Results JOIN Teams USING (TeamID) JOIN Rounds USING (RoundID)
         WHERE RoundNumber = 1 ORDER BY TeamName)"

begin hands
open_display 1280x720
{
    cat "$project/scripts/demo.sql"
    echo "DELETE FROM Results WHERE RoundID LIKE '%1';"
} >"$place/quiz.sql"
new_folder Rankelo "$place/quiz.sql"
start_program
window "$console"

point 40 12 # the closed chooser
xdotool click 5 click 5
picture wheel
for _ in 1 2 3; do
    go_to "Result Entry" F6
    hold Return
    window "Back of the Net"
    stored "$scores" ""
    go_to "Result Entry" Escape
    hold Escape
    window "$console"
done

point 22 40 # Teams Setup
picture tile
xdotool click --repeat 2 --delay 60 1
window "Team Entry"
picture teams
press Return
ask_focus
stored "SELECT COUNT(*) FROM Teams" 12
go_to "$console" Escape
