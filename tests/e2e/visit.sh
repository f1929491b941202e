# A visit to every screen of the demo evening, with a picture of each. Sourced after driver.sh.

# visit_screens PREFIX [NAME=VALUE...]: on the open display; ends the program again.
visit_screens() {
    local prefix=$1
    shift
    new_folder "$prefix" "$project/scripts/demo.sql"
    start_program "$@"
    window "$console"
    picture "$prefix-console"
    press F2
    window "Round Entry"
    picture "$prefix-round-entry"
    press Escape
    window "$console"
    press F3
    window "Team Entry"
    picture "$prefix-team-entry"
    press Escape
    window "$console"
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
    press F7
    window "Name That Tune Results"
    picture "$prefix-board-of-round"
    press Escape
    window "$console"
    press F8
    window "Rankelo Results"
    picture "$prefix-board-podium-hidden"
    press 3
    picture "$prefix-board-third"
    press 2
    picture "$prefix-board-second"
    press 1
    picture "$prefix-board-winner"
    press Escape
    window "$console"
    press Escape
    window "Exit Application"
    picture "$prefix-exit"
    press alt+y
    ended_with 0
}
