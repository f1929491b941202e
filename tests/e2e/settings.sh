#!/usr/bin/env bash
# The splash, a saved setting that the board takes over, and emptying the database.
source "$(dirname "$0")/driver.sh"

open_settings() {
    press Return
    window "Settings"
}

rows="SELECT (SELECT COUNT(*) FROM Teams), (SELECT COUNT(*) FROM Rounds),
             (SELECT COUNT(*) FROM Results)"

begin settings
open_display 1280x720
new_folder Rankelo "$project/scripts/demo.sql"
start_program
within_patience "the splash" is_open
picture splash
press Escape F8 # a person without patience; neither key reaches the console
window "$console"
press shift+Tab shift+Tab # to the button of the settings

open_settings
press Tab
enter_text 20                # points; the size was selected
press Tab Tab Tab Tab Tab    # to the background of the board
picture settings
press Return
window "Colour Properties"
picture colour
press Escape
window "Settings"
press Tab
enter_text 1000 # the left margin
press Tab Tab
enter_text tall # no number, so the footer stays
press Tab Tab Tab Tab Tab Return # the save button
window "$console"
expected="[Application] FontName=Arial FontSize=20 DebugMode=0 BackGround=0 FColorA=8454143 \
BColorA=16576 FColorB=8454143 BColorB=16512 CellPadX=40 CellPadY=80 LeftMargin=1000 \
RightMargin=200 LabelWidth=7"
saved=$(tr -s '\r\n' ' ' <"$folder/Rankelo.INI")
[[ $saved == "$expected " ]] || fail "the settings are saved as $saved"

press F8
window "Rankelo Results"
picture board
shows 60 "#000000" # the lines begin right of here now
colours_down 70 | grep -q '#804000' || fail "no line begins at the left margin"
press Escape
window "$console"

open_settings
press shift+Tab Return # from the first control back to the last one
window "Reset Database"
picture reset
press Return # the button No has the keyboard
window "Settings"
stored "$rows" "12|6|72"
press Return
window "Reset Database"
press alt+y
window "Database reset"
stored "$rows" "0|0|0"
picture reset-done
press Return
ended_with 0
[[ ! -s $place/stderr ]] || fail "the program said: $(<"$place/stderr")"
