#!/usr/bin/env bash
# The user guide names what the program has: every caption, key and message of the guide is in the
# source, every key and message of the program is in the guide, and the PDF that ships holds the
# guide's words and tells how many teams fit on the board as it is laid out today.
#
#   check_guide.sh BOARD_CAPACITY
set -euo pipefail
export LC_ALL=C.UTF-8
board_capacity=$1
cd "$(dirname "$0")/../.."

guide=$(tr '\n' ' ' <docs/guide/guide.html | sed -E 's/ +/ /g; s/&amp;/\&/g')
source_text=$(cat src/*.cpp src/*/*.cpp | tr '\n' ' ' | sed -E 's/ +/ /g')
source_strings=$(grep -rhoP --include='*.cpp' '"(?:[^"\\]|\\.)*"' src)
pdf=$(pdftotext assets/Rankelo.PDF - | tr '\n' ' ' | sed -E 's/ +/ /g')
failures=0

miss() {
    echo "guide: $*" >&2
    failures=$((failures + 1))
}

# marked PATTERN: each text that stands between the pattern and the next tag, once.
marked() {
    grep -oP "$1\K[^<]+" <<<"$guide" | sort -u
}

count=0
while read -r caption; do
    count=$((count + 1))
    [[ $source_text == *"\"$caption\""* ]] || miss "the program shows no \"$caption\""
done < <(marked '<span class="caption">')
((count > 30)) || miss "only $count captions are marked"
while read -r reason; do # a part of what it says
    grep -qF -- "$reason" <<<"$source_strings" || miss "the program never says \"$reason\""
done < <(marked '<span class="reason">')

# Where a key is known to the program; the others are keys of every desktop.
declare -A keys=([Esc]=Key_Escape [Enter]=Key_Return [1]='u"1"' [2]='u"2"' [3]='u"3"'
    [Tab]='' [Shift]='' [Space]='' ['↑']='' ['↓']='')
while read -r key; do
    [[ $key != F? ]] || keys[$key]=Qt::Key_$key
    [[ -v keys[$key] && $source_text == *"${keys[$key]-}"* ]] || miss "the program has no key $key"
done < <(marked '<kbd>')
while read -r key; do
    [[ $guide == *"<tr><td><kbd>$key</kbd></td>"* ]] || miss "the table of keys lacks $key"
done < <(grep -oP 'Qt::Key_\KF\d(?=, frmMain)' <<<"$source_text")

# A tile's row in the table of keys has the tile's own key.
while IFS='|' read -r key caption; do
    grep -qE "\"$caption\", \"[^\"]*\", *\"$key\"" <<<"$source_text" ||
        miss "$key is not the key of $caption"
done < <(sed -nE 's:.*<tr><td><kbd>(F[0-9]|Esc)</kbd></td><td><span class="caption">([^<]*)</span>.*:\1|\2:p' \
    docs/guide/guide.html)

# Every text and title of a message box.
count=0
while read -r text; do
    count=$((count + 1))
    [[ $guide == *"<span class=\"caption\">$text</span>"* ]] || miss "the message \"$text\" is not explained"
done < <(grep -oP '(Messages::(Inform|Ask)\([^;]*;|deleteQuestion = [^}]*)' <<<"$source_text" |
    grep -oP 'QStringLiteral\("\K[^"]+' | sort -u)
((count > 10)) || miss "only $count messages were found in the source"

# The PDF was made from this text: every heading and message of it, and both tables.
while read -r text; do
    [[ $pdf == *"$text"* ]] || miss "the PDF lacks \"$text\"; run scripts/guide"
done < <(marked '<h[123][^>]*>' && marked '<b>')
capacity=$(for screen in 1280x720 1366x768 1920x1080 3840x2160; do
    "$board_capacity" $screen | sed "s/^/$screen /"
done)
for table in sizes lines; do
    while IFS= read -r row; do
        [[ $pdf == *" ${row//|/ } "* ]] || miss "the PDF lacks the row ${row//|/ }; run scripts/guide"
    done < <(awk -v table=$table -f docs/guide/tables.awk <<<"$capacity")
done

((failures == 0)) || exit 1
