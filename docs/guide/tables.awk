# Makes the guide's two tables of how many teams fit, from what board_capacity says of each screen.
#
#   awk -v table=lines|sizes -f tables.awk
#
# Reads lines that begin with the screen and go on as board_capacity prints them; writes a row of
# the table a line, its cells apart by "|".

{
    if (!($1 in seen)) { seen[$1] = 1; screens[++screen_count] = $1 }
    if (!($2 in known)) { known[$2] = 1; sizes[++size_count] = $2 }
    one[$1, $2] = $3; from[$1, $2] = $4; to[$1, $2] = $5
    letters_one[$1, $2] = $6; letters_two[$1, $2] = $7; cut[$1, $2] = $8
}

function fits(teams, screen, size) {
    if (teams <= one[screen, size])
        return letters_one[screen, size] >= 20
    return teams >= from[screen, size] && teams <= to[screen, size] && !cut[screen, size] &&
        letters_two[screen, size] >= 20
}

function largest(first, last, screen,    s, teams, size) {
    for (s = size_count; s >= 1; --s) {
        size = sizes[s]
        for (teams = first; teams <= last && fits(teams, screen, size); ++teams)
            ;
        if (teams > last)
            return size
    }
    return "–"
}

function lines_row(size,    row, i, screen) {
    row = size
    for (i = 1; i <= screen_count; ++i) {
        screen = screens[i]
        row = row "|" one[screen, size] " · " from[screen, size] "–" to[screen, size] \
            (cut[screen, size] ? " †" : "")
    }
    return row
}

function sizes_row(first, last,    row, i) {
    row = first == 1 ? "up to " last : first "–" last
    for (i = 1; i <= screen_count; ++i)
        row = row "|" largest(first, last, screens[i])
    return row
}

END {
    if (table == "lines") {
        for (s = 1; s <= size_count; ++s)
            if (sizes[s] >= 20 && sizes[s] <= 52)
                print lines_row(sizes[s])
    } else {
        first = 1
        count = split("8 10 12 15 18 20 24 30 36 40", lasts, " ")
        for (r = 1; r <= count; ++r) {
            print sizes_row(first, lasts[r])
            first = lasts[r] + 1
        }
    }
}
