#!/usr/bin/env bash
# Real hands at the real program: keys that are held too long, a double click where one is meant, a
# turn of the wheel in passing; and a sheet of scores typed down the list.
source "$(dirname "$0")/../driver/driver.sh"

# hold KEY: so long that the X server repeats it, an even or an odd number of times, which all arrive.
hold() {
    xdotool keydown "$1"
    sleep "1.$((RANDOM % 100 + 100))"
    xdotool keyup "$1"
    ask_focus
}

scores="SELECT group_concat(Score || iif(Joker = 1, 'j', ''), ' ') FROM
        (SELECT * FROM Results JOIN Teams USING (TeamID) JOIN Rounds USING (RoundID)
         WHERE RoundNumber = 1 ORDER BY TeamName)"

begin hands
open_display 1280x720
new_folder Rankelo "$project/scripts/demo.sql"
mapfile -t teams < <(sqlite3 "$folder/Rankelo.MDB" "DELETE FROM Results WHERE RoundID LIKE '%1';
                     SELECT TeamName FROM Teams ORDER BY TeamName")
start_program
window "$console"

xdotool getwindowfocus mousemove --window %1 300 50 click 5 click 5 # the closed chooser
for _ in 1 2 3; do
    go_to "Result Entry" F6
    hold Return
    window "${teams[0]}"
    stored "$scores" ""
    go_to "Result Entry" Escape
    hold Escape
    window "$console"
done

# Teams Setup; a team is listed at that place of the screen that opens.
xdotool getwindowfocus mousemove --window %1 266 140 click --repeat 2 --delay 40 1
window "Team Entry"
press Return
ask_focus
stored "SELECT COUNT(*) FROM Teams" 12
go_to "$console" Escape

# The first round is still the one in the chooser. Its sheet takes Enter, then Down behind each score,
# and one key for a joker: at most 13 keys that command for 10 scores.
go_to "Result Entry" F6
keys=Return
for team in "${teams[@]}"; do
    go_to "$team" "${keys##* }"
    enter_text 7
    [[ $team != L* ]] || { press alt+j; keys+=" alt+j"; }
    keys+=" Down"
done
go_to "Result Entry" Down
stored "$scores" "7 7 7j 7j 7 7 7 7 7 7 7 7"
(($(wc -w <<<"$keys") * 10 <= 13 * ${#teams[@]})) || fail "too many keys: $keys"

press Home
go_to "${teams[0]}" Return
for way in "space 7j" "alt+j 7" "alt+j 7j" "space 7"; do
    focus chkJoker
    hold "${way% *}"
    go_to "Result Entry" Return
    stored "$scores" "${way#* } 7 7j 7j 7 7 7 7 7 7 7 7"
    go_to "${teams[0]}" Return
done
said_nothing
