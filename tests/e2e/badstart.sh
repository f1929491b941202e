#!/usr/bin/env bash
# Starts that must not succeed: the program says in one line which file is wrong and why, ends
# with exit status 1, and leaves the folder as it was, byte for byte. And one that must.
source "$(dirname "$0")/../../scripts/stage/driver.sh"

begin badstart
open_display 1280x720

missing()   { rm "$folder/Rankelo.MDB"; }
empty()     { : >"$folder/Rankelo.MDB"; }
foreign()   { echo "Dear quiz master, these are the teams: ..." >"$folder/Rankelo.MDB"; }
no_column() { sqlite3 "$folder/Rankelo.MDB" "ALTER TABLE Rounds DROP COLUMN MaxScore"; }
damaged() { # the pages behind the first one hold noise
    printf 'This is not a page. %.0s' {1..820} |
        dd of="$folder/Rankelo.MDB" bs=4096 seek=1 conv=notrunc status=none
}
is_folder() { rm "$folder/Rankelo.MDB"; mkdir "$folder/Rankelo.MDB"; }
word_for_number() { printf '[Application]\nFontSize=32\nCellPadX=wide\n' >"$folder/Rankelo.INI"; }
too_big_number()  { printf '[Application]\nFooter=99999999999\n' >"$folder/Rankelo.INI"; }
locked() {
    mkfifo "$place/statements"
    sqlite3 "$folder/Rankelo.MDB" <"$place/statements" >"$place/answers" &
    locker=$!
    exec {to_locker}>"$place/statements"
    echo "BEGIN EXCLUSIVE; SELECT 'locked';" >&"$to_locker"
    within_patience "the lock" grep -q locked "$place/answers"
}
after_locked() {
    exec {to_locker}>&-
    wait "$locker"
}

contents() {
    (cd "$1" && find . -type f -exec sha256sum {} + | sort && find . ! -type f | sort)
}

# One broken start a line: what breaks it, the file to be named, a word of the reason.
while read -r breakage file reason; do
    new_folder "$breakage" "$project/scripts/demo.sql"
    "$breakage"
    before=$(contents "$folder")
    start_program
    ended_with 1
    [[ $(contents "$folder") == "$before" ]] || fail "$breakage: the folder has changed"
    said=$(<"$place/stderr")
    [[ $(wc -l <"$place/stderr") == 1 && $said =~ $folder/$file.*($reason) ]] ||
        fail "$breakage: the program said \"$said\" instead of one line about $file: $reason"
    [[ $(type -t "after_$breakage") != function ]] || "after_$breakage"
done <<'END'
missing         Rankelo.MDB not found
empty           Rankelo.MDB empty|table
foreign         Rankelo.MDB not a quiz database
no_column       Rankelo.MDB MaxScore
damaged         Rankelo.MDB damaged|malformed
is_folder       Rankelo.MDB not found|folder
locked          Rankelo.MDB another program holds
word_for_number Rankelo.INI CellPadX
too_big_number  Rankelo.INI Footer
END

# By its icon, where nobody reads the line: a box says it.
new_folder by_icon
missing
ln -sf /dev/null "$place/stderr"
start_program
window "Application Error"
picture by-icon
press Return
ended_with 1
rm "$place/stderr"

# From a CD or from somebody else's folder, whatever its name: everything can be seen, and what
# cannot be stored is told.
new_folder 'Quiz #7 100% ?mode=memory' "$project/scripts/demo.sql"
chmod -R a-w,a+rX "$folder"
if ((EUID == 0)); then
    as_user=(setpriv --reuid=65534 --regid=65534 --clear-groups)
    chown -R 65534:65534 "$place"/{home,config,tmp,runtime}
fi
before=$(contents "$folder")
start_program
window "$console"
press F3
window "Team Entry"
enter_text "Latecomers"
press Return
window "Rankelo Error"
picture read-only
press Return
window "Team Entry"
press Escape F8
window "Rankelo Results"
[[ $(contents "$folder") == "$before" ]] || fail "the read-only folder has changed"
