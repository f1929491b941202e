#!/usr/bin/env bash
# Starts that must not succeed: the program says in one line which file is wrong and why, ends
# with exit status 1, and leaves the folder as it was, byte for byte. And one that must.
source "$(dirname "$0")/../driver/driver.sh"

contents() { (cd "$folder" && find . -type f -exec sha256sum {} + | sort && find . ! -type f | sort); }

begin badstart
open_display 1280x720
new_folder wrong "$project/scripts/demo.sql"
printf '[Application]\nFontSize=32\nCellPadX=wide\n' >"$folder/Rankelo.INI"
before=$(contents)
start_program
ended_with 1
[[ $(contents) == "$before" ]] || fail "the folder has changed"
[[ $(wc -l <"$place/stderr") == 1 && $(<"$place/stderr") == *"$folder/Rankelo.INI: CellPadX=wide: "* ]] ||
    fail "\"$(<"$place/stderr")\" instead of one line about CellPadX"

# By its icon, where nobody reads the line: one box says it, with debug messages too, and where the
# desktop's session keeps what its programs say.
for start in "0 /dev/null" "1 /dev/null" "0 $place/home/.xsession-errors"; do
    read -r debug log <<<"$start"
    ln -sf "$log" "$place/stderr"
    new_folder "by_icon_${start//\//}"
    rm "$folder/Rankelo.MDB"
    printf '[Application]\nDebugMode=%s\n' "$debug" >"$folder/Rankelo.INI"
    start_program
    window "Application Error"
    press Return
    ended_with 1
done
rm "$place/stderr"

# From a CD or somebody else's folder: everything can be seen, and what cannot be stored is told.
new_folder 'Quiz #7 100% ?mode=memory' "$project/scripts/demo.sql"
chmod -R a-w,a+rX "$folder"
if ((EUID == 0)); then
    as_user=(setpriv --reuid=65534 --regid=65534 --clear-groups)
    chown -R 65534:65534 "$place"/{home,config,tmp,runtime}
fi
before=$(contents)
start_program
window "$console"
go_to "Team Entry" F3
enter_text "Latecomers"
go_to "Rankelo Error" Return
go_to "Team Entry" Return
go_to "Rankelo Results" Escape F8
[[ $(contents) == "$before" ]] || fail "the read-only folder has changed"
