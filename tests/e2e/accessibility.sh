#!/usr/bin/env bash
# What a screen reader finds on every screen, asked on the accessibility bus.
source "$(dirname "$0")/../driver/driver.sh"

# step KEY|BUTTON: presses it, and waits until another window has the keyboard.
step() {
    local key=$1 before
    [[ $1 != cmd* ]] || { focus "$1" && key=space; }
    before=$(xdotool getwindowfocus getwindowname)
    press "$key"
    within_patience "another window" has_left "$before"
}
has_left() { ! has_keyboard "$1" && has_keyboard "?*"; }

begin accessibility
open_display 1280x1024
open_session_bus
desktop=(env "${quiet_place[@]}" "${bus[@]}" DISPLAY="$DISPLAY")
"${desktop[@]}" /usr/libexec/at-spi-bus-launcher --launch-immediately >>"$place/display.log" 2>&1 &
display_processes+=($!)
cat >"$place/quiz.sql" <<'END'
INSERT INTO Teams VALUES ('a', 'Ants'), ('b', 'Bees');
INSERT INTO Rounds VALUES ('m', 'Music', 1, 10);
INSERT INTO Results VALUES ('x', 'm', 'a', 7, 1);
END
new_folder Rankelo "$place/quiz.sql"
start_program "${bus[@]}" QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
window "$console"
# The steps to a screen, and what it says.
while read -ra way && read -rd % spoken && read -r; do
    for key in "${way[@]:1}"; do
        step "$key"
    done
    comes_to "${spoken//$'\n'/ }" "${desktop[@]}" "$project/tests/driver/spoken.py"
done <<END
console
frame $(xdotool getwindowfocus getwindowname), combo box Round [1] Music, check box Show All Rankings,
push button Rounds Setup ([F2] Add, Edit & Delete Rounds),
push button Teams Setup ([F3] Enter, Edit & Delete Teams),
push button Enter Results ([F6] Enter Results for a Round),
push button Show Round ([F7] Display Results for Selected Round),
push button Show Rankelo ([F8] Display Results for Selected Round),
push button View Round (View results in a Window),
push button View Rankelo (Add, Edit & Delete Rounds),
push button Configuration (Application Configuration),
push button Exit Application (Exit Application), status bar Round 1 of 1: 1 of 2 results entered %
rounds F2
dialog Round Entry, tree Round, Round Name, table cell 1, table cell Music, text Round Name:,
push button Add a round, push button Rename the selected round, push button Delete the selected round,
push button Move the selected round up, push button Move the selected round down %
teams Escape F3
dialog Team Entry, tree Team Name, table cell Ants, table cell Bees, text Team Name:,
push button Add a team, push button Rename the selected team, push button Delete the selected team %
results Escape F6
dialog Result Entry, combo box Round Name: Music, tree Team Name, Score, Joker,
table cell Ants, table cell 7, table cell Y, table cell Bees (no result yet), table cell 0, table cell N %
score Return
dialog Ants, text Score: Score, check box Joker (Alt+J), push button OK, push button Cancel %
board Escape Escape F8
frame Rankelo Results %
standings Escape cmdViewLeader
dialog Rankelo Results, tree Position, Team Name, Score, Joker,
table cell 1, table cell Ants, table cell 14, table cell Played,
table cell 2, table cell Bees, table cell 0, table cell,
combo box Print Results To:, push button Print Results %
settings Escape cmdConfiguration
dialog Settings, combo box Font Display Font Arial, text Font,
combo box Size in points Display Font 32, text Size in points,
push button Primary Display Colour Background Colour..., push button Primary Display Colour Fore Colour...,
push button Secondary Display Colour Background Colour...,
push button Secondary Display Colour Fore Colour..., push button Screen Settings Colour...,
text Left Margin: Screen Settings Left Margin:, text Right: Screen Settings Right:,
text Footer: Screen Settings Footer:, text Horizontal: Cell Padding Horizontal:,
text Vertical: Cell Padding Vertical:, text Width: Cell Padding Width:,
push button Reset database and remove all data, check box Debug Messages, push button Save Settings,
push button Close Window, push button Display Application Information %
about cmdAbout
dialog Rankelo, push button Close %
END
