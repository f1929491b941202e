# A visit to every screen of the demo evening, with a picture of each. Sourced after driver.sh.

# visit_screens PREFIX [NAME=VALUE...]: on the open display; ends the program again.
visit_screens() {
    prefix=$1
    shift
    new_folder "$prefix" "$project/scripts/demo.sql"
    start_program "$@"
    within_patience "the splash screen" is_open
    picture "$prefix-splash"
    window "$console"
    picture "$prefix-console"
    visit_entry_screens
    visit_boards
    visit_tiles_without_a_key
    press Escape
    window "Exit Application"
    picture "$prefix-exit"
    press alt+y
    ended_with 0
}

# visit NAME TITLE KEY...: opens a screen from the console and leaves it again.
visit() {
    local name=$1 title=$2
    shift 2
    press "$@"
    window "$title"
    picture "$prefix-$name"
    press Escape
    window "$console"
}

visit_entry_screens() {
    visit round-entry "Round Entry" F2
    visit team-entry "Team Entry" F3
    press F5 F6
    window "Result Entry"
    picture "$prefix-result-entry"
    press Return
    window "Back of the Net"
    picture "$prefix-score"
    press Escape
    window "Result Entry"
    press Escape
    window "$console"
}

visit_boards() {
    visit board-of-round "Name That Tune Results" F7
    press F8
    window "Rankelo Results"
    picture "$prefix-board-podium-hidden"
    local position
    for position in 3 2 1; do
        press $position
        picture "$prefix-board-$position"
    done
    press Escape
    window "$console"
}

# From the round chooser the tab key goes backwards round to the last tiles.
visit_tiles_without_a_key() {
    visit view-leader "Rankelo Results" shift+Tab shift+Tab shift+Tab space
    visit view-round "Name That Tune Results" shift+Tab space
    press Tab Tab space
    window "Settings"
    picture "$prefix-settings"
    press shift+Tab shift+Tab space
    window "Rankelo"
    picture "$prefix-about"
    press Escape
    window "Settings"
    press Escape
    window "$console"
}
