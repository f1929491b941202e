#!/usr/bin/env bash
# Real hands at the real program: keys that are held too long, a double click where one is meant, a
# turn of the wheel in passing, a sheet of scores typed down the list, a saved setting that the board
# takes over, the plug pulled right after a score was confirmed, and emptying the database.
source "$(dirname "$0")/../driver/driver.sh"

# hold KEY: long enough for the X server to repeat it many times; returns when all have arrived.
hold() {
    xdotool keydown "$1"
    sleep 1.2
    xdotool keyup "$1"
    ask_focus
}

scores="SELECT group_concat(Score || iif(Joker = 1, 'j', ''), ' ') FROM
        (SELECT * FROM Results JOIN Teams USING (TeamID) JOIN Rounds USING (RoundID)
         WHERE RoundNumber = 1 ORDER BY TeamName)"
rows="SELECT (SELECT COUNT(*) FROM Teams), (SELECT COUNT(*) FROM Rounds), COUNT(*) FROM Results"
line_begins() { [[ $(colours_down 70) == *$pair_b* ]]; }

open_settings() {
    focus cmdConfiguration
    go_to Settings Return
}

# confirm_score SCORE: of the first team in the first round.
confirm_score() {
    go_to "Result Entry" F6
    go_to "${teams[0]}" Return
    enter_text "$1"
    press Return
    stored "$scores" "$1j 7 7j 7 7 7 7 7 7 7 7 7"
}

begin hands
open_display 1280x720
new_folder "Quiz #7 100%" "$project/scripts/demo.sql"
mapfile -t teams < <(sqlite3 "$folder/Rankelo.MDB" "DELETE FROM Results WHERE RoundID LIKE '%1';
                     SELECT TeamName FROM Teams ORDER BY TeamName")
start_program
within_patience "the splash" is_open
press Escape F8 # a person without patience; neither key reaches the console
window "$console"

xdotool getwindowfocus mousemove --window %1 300 60 click 5 click 5 # the closed chooser
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
xdotool getwindowfocus mousemove --window %1 240 150 click --repeat 2 --delay 100 1
window "Team Entry"
press Return
ask_focus
stored "SELECT COUNT(*) FROM Teams" 12
go_to "$console" Escape

# The first round is still the one in the chooser. Its sheet takes Enter, then Down behind each score,
# and Tab and Space for a joker: at most 13 keys that command for 10 scores.
go_to "Result Entry" F6
keys=Return
for team in "${teams[@]}"; do
    go_to "$team" "${keys##* }"
    enter_text 7
    [[ $team != Last* ]] || { press Tab space; keys+=" Tab space"; }
    keys+=" Down"
done
go_to "Result Entry" Down
stored "$scores" "7 7 7j 7 7 7 7 7 7 7 7 7"
(($(wc -w <<<"$keys") * 10 <= 13 * ${#teams[@]})) || fail "too many keys: $keys"

press Home
go_to "${teams[0]}" Return
for joker in 7j 7 7j; do
    focus chkJoker
    hold space
    go_to "Result Entry" Return
    stored "$scores" "$joker 7 7j 7 7 7 7 7 7 7 7 7"
    go_to "${teams[0]}" Return
done
for team in "${teams[@]:1:3}"; do
    hold Down
    window "$team"
done
go_to "Result Entry" Escape
go_to "$console" Escape

open_settings
focus cboDisplaySize
enter_text 20 # points; the size was selected
focus txtLMargin
enter_text 1000
focus cmdSave
go_to "$console" Return
go_to "Rankelo Results" F8
within_patience "a line at the left margin" line_begins
shows 60 "#000000" # and none left of it
go_to "$console" Escape
before=$(ls -A "$folder")
confirm_score 41
kill_program
[[ $(ls -A "$folder") == "$before" ]] || fail "left behind: $(ls -A "$folder")"
stored "PRAGMA integrity_check" ok
start_program
window "$console"
confirm_score 42 # over the one before it; a result that was not found would be a second row
stored "$rows" "12|6|72"
window "Result Entry"
go_to "$console" Escape
open_settings
focus cmdReset
go_to "Reset Database" Return
go_to Settings Return # the button No has the keyboard
stored "$rows" "12|6|72"
go_to "Reset Database" Return
go_to "Database reset" alt+y
stored "$rows" "0|0|0"
press Return
ended_with 0
said_nothing
