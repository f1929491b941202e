#!/usr/bin/env bash
# A whole quiz evening by keyboard alone, from the empty database to the winner, on the real
# program: what is stored, what the audience sees, and how the program leaves.
source "$(dirname "$0")/../driver/driver.sh"

black='#000000' first='#00FF00' second='#008000' third='#004000' # the podium's greens
pair_a='#C04000' pair_b='#804000'                                # every other line below it

add_round() {
    enter_text "$1"
    press Tab space # out of the box, onto the Add button
    stored "SELECT RoundName FROM Rounds ORDER BY RoundNumber DESC LIMIT 1" "$1"
    press shift+Tab
}

add_team() {
    enter_text "$1"
    press Return
    stored "SELECT COUNT(*) FROM Teams WHERE TeamName='${1//\'/\'\'}'" 1
}

# enter_scores ROUND SCORE...: the scores of all teams in the order of the list; a "j" behind a
# score plays the joker. The score dialog is named after the team.
enter_scores() {
    local round=$1 score entered=0
    shift
    press F6
    window "Result Entry"
    for score; do
        press Return
        window "${teams[entered]}"
        enter_text "${score%j}"
        [[ $score != *j ]] || press Tab space
        ((round > 1 || entered > 0)) || picture score
        press Return
        window "Result Entry"
        stored "SELECT COUNT(*) FROM Results JOIN Rounds USING (RoundID) WHERE RoundNumber=$round" \
            $((++entered))
        press Down
    done
    picture "results-of-round-$round"
    press Escape
    window "$console"
}

begin evening
open_display 1280x720
new_folder Rankelo
before=$(ls -A "$folder")
start_program
window "$console"
picture empty-console

press F2
window "Round Entry"
add_round "Around the World"
add_round "Name That Tune"
add_round "Food & Drink"
picture rounds
press Escape
window "$console"

press F3
window "Team Entry"
add_team "Quizzy Rascals"
add_team "O'Brien"            # Enter takes the name as it stands
enter_text "The Bees' Knees"  # leaving the box takes the apostrophe away
press Tab space
stored "SELECT TeamName FROM Teams WHERE TeamName LIKE 'The Bees%'" "The Bees Knees"
add_team "Last Orders"        # the focus is in the box again
add_team "Beer Necessities"
add_team "tequila & lime"
picture teams
press Escape
window "$console"
teams=("Beer Necessities" "Last Orders" "O'Brien" "Quizzy Rascals" "tequila & lime"
    "The Bees Knees")
stored "SELECT TeamName FROM Teams ORDER BY TeamName" "$(printf '%s\n' "${teams[@]}")"

# Two teams end level on the third place, one of them by its joker.
enter_scores 1 5 3j 8 9 4 6j
press F5
enter_scores 2 7 0 8 8j 2 5
press F5 F5 F4 F4 F5 F5 # past the end, back to the first, and to the last again
enter_scores 3 6 4 9j 7 1 1
stored "SELECT TeamName, group_concat(Score || iif(Joker = 1, 'j', ''), ' ')
        FROM (SELECT * FROM Teams JOIN Results USING (TeamID) JOIN Rounds USING (RoundID)
              ORDER BY TeamName, RoundNumber) GROUP BY TeamName" \
    "Beer Necessities|5 7 6
Last Orders|3j 0 4
O'Brien|8 8 9j
Quizzy Rascals|9 8j 7
tequila & lime|4 2 1
The Bees Knees|6j 5 1"

# One pixel beside the left margin runs through the boxes that hold the positions.
edge=20

press F7 # the third round alone: 18, 7, 6, 4 and twice 1
window "Food & Drink Results"
shows $edge "$black $pair_b $black $pair_a $black $pair_a $black"
picture board-of-round
press Escape
window "$console"

press F8 # 34 O'Brien, 32 Quizzy Rascals, 18 Beer Necessities and The Bees Knees, 10, 7
window "Rankelo Results"
below="$black $pair_b $black $pair_a $black"
shows $edge "$below"
picture board-podium-hidden
press 4 # means nothing
for revealed in "3 $black $third $black $third" "2 $black $second" "1 $black $first"; do
    press "${revealed%% *}"
    below="${revealed#* } $below"
    shows $edge "$below"
    picture "board-from-${revealed%% *}"
done
# The jokers' cards have a white frame. Three stand on the podium; the one of Last Orders does not
# show, for a joker comes with the reveal of its line.
(($(colours_down 1147 | grep -o '#FFFFFF' | wc -l) == 3)) || fail "not three jokers on the podium"
press Escape
window "$console"
picture console

press Escape
window "Exit Application"
picture exit
press alt+y
ended_with 0
[[ $(ls -A "$folder") == "$before" ]] || fail "the folder holds more than before: $(ls -A "$folder")"
[[ ! -s $place/stderr ]] || fail "the program said: $(<"$place/stderr")"
