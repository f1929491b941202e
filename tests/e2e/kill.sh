#!/usr/bin/env bash
# The plug is pulled right after a score was confirmed: the score is in the one file that people
# copy, and the program finds it there at its next start.
source "$(dirname "$0")/../driver/driver.sh"

begin kill
open_display 1280x720
new_folder Rankelo
sqlite3 -bail "$folder/Rankelo.MDB" "
    INSERT INTO Rounds VALUES ('R1', 'Around the World', 1, 0);
    INSERT INTO Teams VALUES ('T1', 'Quizzy Rascals'), ('T2', 'Last Orders');"

before=$(ls -A "$folder")

# Each score goes over the one before it, which the program must have found again: a result that it
# did not find would become a second row.
for score in 7 12 3; do
    start_program
    window "$console"
    press F6
    window "Result Entry"
    press Return
    window "Last Orders"
    enter_text $score
    press Return
    stored "SELECT Score FROM Results" $score
    kill_program

    [[ $(ls -A "$folder") == "$before" ]] || fail "left behind: $(ls -A "$folder")"
    stored "PRAGMA integrity_check" ok
done
