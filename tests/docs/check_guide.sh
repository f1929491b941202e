#!/usr/bin/env bash
# The user guide names what the program has: every caption and key of the guide is in the source,
# every message of the program is in the guide, and the PDF that ships holds the guide's headings
# and tells how many teams fit on the board.
set -euo pipefail
export LC_ALL=C.UTF-8
cd "$(dirname "$0")/../.."

one_line() { tr '\n\f' '  ' | sed -E 's/ +/ /g; s/&amp;/\&/g'; }
guide=$(one_line <docs/guide/guide.html)
source_text=$(cat src/*.cpp src/*/*.cpp | one_line)
pdf=$(pdftotext assets/Rankelo.PDF - | one_line)

# missing TEXT BEFORE AFTER: says which lines of the input do not stand in the text, between what
# must be before and after them.
missing() {
    local count=0 line
    while IFS= read -r line; do
        count=$((count + 1))
        [[ $1 == *"$2$line$3"* ]] || echo "not found: $2$line$3"
    done
    ((count > 4)) || echo "only $count lines to look for between $2 and $3"
}

# marked PATTERN: each text that stands between the pattern and the next tag.
marked() {
    grep -oP "$1\K[^<]+" <<<"$guide"
}

faults=$(
    marked '<span class="caption">' | missing "$source_text" '"' '"'
    marked '<kbd>F' | missing "$source_text" Qt::Key_F ''
    marked '<kbd>' | grep -vxE 'F[0-9]|Esc|Enter|[123]|Tab|Shift|Space|Windows|P|Ctrl|C|↑|↓' || true
    grep -oP 'Qt::Key_\KF\d(?=, frmMain)' <<<"$source_text" |
        missing "$guide" '<tr><td><kbd>' '</kbd></td>'
    sed -nE 's:.*<kbd>(F[0-9])</kbd></td><td><span class="caption">([^<]*)<.*:\2", "[\1]:p' \
        docs/guide/guide.html | missing "$source_text" '"' ' ' # the tiles
    # Every text and title of a message box.
    grep -oP '(Messages::(Inform|Ask)\([^;]*;|deleteQuestion = [^}]*)' <<<"$source_text" |
        grep -oP 'QStringLiteral\("\K[^"]+' | missing "$guide" '<span class="caption">' '</span>'
    marked '<h[123][^>]*>' | missing "$pdf" '' ''
    for table in sizes lines; do
        awk -v table=$table -f docs/guide/tables.awk | tr '|' ' ' |
            missing "$pdf" ' ' ' '
    done
)
[[ -z $faults ]] || { echo "$faults"; exit 1; }
