#!/usr/bin/env bash
# A whole quiz by keyboard alone, from the empty database to the winner, on the real program: what
# is stored, what the audience sees, and how the program leaves.
source "$(dirname "$0")/../driver/driver.sh"

# enter_scores SCORE...: the scores of all teams in the order of the list; a "j" behind a score plays
# the joker. The score dialog is named after the team.
enter_scores() {
    local score entered=0
    go_to "Result Entry" F6
    for score; do
        go_to "${teams[entered++]}" Return
        enter_text "${score%j}"
        [[ $score != *j ]] || press alt+j
        go_to "Result Entry" Return
        press Down
    done
    go_to "$console" Escape
}

begin quiz
open_display 1280x720
new_folder Rankelo
before=$(ls -A "$folder")
start_program
within_patience "the splash" is_splash_there
window "$console"

go_to "Round Entry" F2
for round in "Around the World" "Name That Tune" "Food & Drink"; do
    enter_text "$round" # the keyboard is in the box again
    focus cmdAdd
    press space
done
go_to "$console" Escape

go_to "Team Entry" F3
enter_text "The Bees' Knees" # leaving the box takes the apostrophe away
focus cmdAdd
press space
for team in "Quizzy Rascals" "O'Brien" "Last Orders" "Beer Necessities" "tequila & lime"; do
    enter_text "$team"
    press Return       # takes the name as it stands
done
teams=("Beer Necessities" "Last Orders" "O'Brien" "Quizzy Rascals" "tequila & lime"
    "The Bees Knees")
stored "SELECT TeamName FROM Teams ORDER BY TeamName" "$(printf '%s\n' "${teams[@]}")"
go_to "$console" Escape

# Two teams end level on the third place, one of them by its joker.
enter_scores 5 3j 8 9 4 6j
press F5
enter_scores 7 0 8 8j 2 5
press F5 F5 F4 F4 F5 F5 # past the end, back to the first, and to the last again
enter_scores 6 4 9j 7 1 1
stored "SELECT TeamName, group_concat(Score || iif(Joker = 1, 'j', ''), ' ')
        FROM (SELECT * FROM Teams JOIN Results USING (TeamID) JOIN Rounds USING (RoundID)
              ORDER BY TeamName, RoundNumber) GROUP BY TeamName" \
    "Beer Necessities|5 7 6
Last Orders|3j 0 4
O'Brien|8 8 9j
Quizzy Rascals|9 8j 7
tequila & lime|4 2 1
The Bees Knees|6j 5 1"

edge=20 # one pixel beside the left margin runs through the boxes that hold the positions
go_to "Rankelo Results" F8
below="$black $pair_b $black $pair_a $black"
comes_to "$below" colors_down West $edge
for revealed in "3 $black $third $black $third" "2 $black $second" "1 $black $first"; do
    press "${revealed%% *}"
    below="${revealed#* } $below"
    comes_to "$below" colors_down West $edge
done
go_to "$console" Escape
go_to "Exit Application" Escape
press alt+y
ended_with 0
[[ $(ls -A "$folder") == "$before" ]] || fail "the folder holds more than before: $(ls -A "$folder")"
# The next quiz begins empty, and this one is kept.
start_program
window "$console"
focus cmdConfiguration
go_to "Settings" space
focus cmdReset
go_to "Reset Database" space
press alt+y
window "Database reset"
press Return
ended_with 0
everything="SELECT (SELECT count(*) FROM Rounds), (SELECT count(*) FROM Teams), count(*) FROM Results"
stored "$everything" "0|0|0"
[[ $(sqlite3 "$folder/Earlier quizzes/"*.MDB "$everything") == "3|6|18" ]] || fail "no copy is kept"
said_nothing
