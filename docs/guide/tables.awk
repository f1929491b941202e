# Makes the rows of the guide's two tables of how many teams fit, cells apart by "|":
#
#   awk -v table=lines|sizes -f tables.awk
#
# The board's arithmetic in twips, 15 to a pixel, with the settings that Rankelo comes with: a line is
# 22 to the point high, the first one stands below two of them, 80 lie between lines, and a line begins
# above the footer of 500. A letter is about 9.5 to the point wide.

function board(screen, points) {
    split(screen, sides, "x")
    height = 15 * sides[2]
    two_columns_from = int(height / (22 * points)) + 1 # only the bare lines count for that
    column = int((height - 500 - 44 * points) / (22 * points + 80)) + 1
    # The lowest line may lack a tenth, which holds no letter.
    cut = 44 * points + (22 * points + 80) * (column - 1) + 0.9 * 22 * points > height
    narrow = 7.5 * sides[1] - 2 * (7.5 * sides[1] / 7 - 200) - 400 # a name's box in two columns
}

function largest(first, last, screen,    i, fits) {
    for (i = count; i >= 1; --i) {
        board(screen, points[i])
        fits = last <= column - cut
        if (first >= two_columns_from)
            fits = last <= 2 * column && !cut && narrow >= 20 * 9.5 * points[i]
        if (fits)
            return points[i]
    }
}

BEGIN {
    screens = split("1280x720 1366x768 1920x1080 3840x2160", screen)
    count = split("16 18 20 22 24 26 28 30 32 34 40 52 70", points)
    rows = table == "lines" ? count - 3 : split("8 10 12 15 18 20 24 30 36 40", lasts)
    for (row = 1; row <= rows; ++row) {
        first = row == 1 ? 1 : lasts[row - 1] + 1
        line = table == "lines" ? points[row + 2] : row == 1 ? "up to 8" : first "–" lasts[row]
        for (s = 1; s <= screens; ++s) {
            board(screen[s], points[row + 2])
            line = line "|" (table == "sizes" ? largest(first, lasts[row], screen[s]) : \
                column - cut " · " two_columns_from "–" 2 * column (cut ? " †" : ""))
        }
        print line
    }
}
