#!/usr/bin/env bash
# The splash, a saved setting that the board takes over, and emptying the database.
source "$(dirname "$0")/../driver/driver.sh"

rows="SELECT (SELECT COUNT(*) FROM Teams), (SELECT COUNT(*) FROM Rounds),
             (SELECT COUNT(*) FROM Results)"

line_begins() {
    colours_down 70 | grep '#804000' >/dev/null
}

begin settings
open_display 1280x720
new_folder "Quiz #7 100%" "$project/scripts/demo.sql"
start_program
within_patience "the splash" is_open
press Escape F8 # a person without patience; neither key reaches the console
window "$console"
press shift+Tab shift+Tab Return # the button of the settings
window "Settings"
press Tab
enter_text 20 # points; the size was selected
press Tab Tab Tab Tab Tab Tab
enter_text 1000 # the left margin
press Tab Tab
enter_text tall # no number, so the footer stays
press Tab Tab Tab Tab Tab Return # the save button
window "$console"
press F8
window "Rankelo Results"
within_patience "a line at the left margin" line_begins
shows 60 "#000000" # and none left of it
press Escape
window "$console"

press Return
window "Settings"
press shift+Tab Return # from the first control back to the last one
window "Reset Database"
press Return # the button No has the keyboard
window "Settings"
stored "$rows" "12|6|72"
press Return
window "Reset Database"
press alt+y
window "Database reset"
stored "$rows" "0|0|0"
press Return
ended_with 0
[[ ! -s $place/stderr ]] || fail "the program said: $(<"$place/stderr")"
