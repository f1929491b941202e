#!/usr/bin/env bash
# The splash, a saved setting that the board takes over, the plug pulled right after a score was
# confirmed, and emptying the database.
source "$(dirname "$0")/../driver/driver.sh"

rows="SELECT (SELECT COUNT(*) FROM Teams), (SELECT COUNT(*) FROM Rounds), COUNT(*) FROM Results"

line_begins() { [[ $(colours_down 70) == *'#804000'* ]]; }

open_settings() {
    focus cmdConfiguration
    go_to Settings Return
}

# confirm_score SCORE: of the first team in the first round.
confirm_score() {
    go_to "Result Entry" F6
    go_to "Back of the Net" Return
    enter_text "$1"
    press Return
    stored "SELECT Score FROM Results JOIN Teams USING (TeamID) JOIN Rounds USING (RoundID)
            WHERE TeamName = 'Back of the Net' AND RoundNumber = 1" "$1"
}

begin settings
open_display 1280x720
new_folder "Quiz #7 100%" "$project/scripts/demo.sql"
start_program
within_patience "the splash" is_open
press Escape F8 # a person without patience; neither key reaches the console
window "$console"
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
