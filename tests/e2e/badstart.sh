#!/usr/bin/env bash
# Starts that must not succeed: the program says in one line which file is wrong and why, ends
# with exit status 1, and leaves the folder as it was, byte for byte. And one that must.
source "$(dirname "$0")/../driver/driver.sh"

contents() {
    (cd "$1" && find . -type f -exec sha256sum {} + | sort && find . ! -type f | sort)
}

damage() { # the pages behind the first one hold noise
    printf 'This is not a page. %.0s' {1..820} |
        dd of=Rankelo.MDB bs=4096 seek=1 conv=notrunc status=none
}

lock() { # until the end
    coproc sqlite3 Rankelo.MDB
    echo "BEGIN EXCLUSIVE; SELECT 'locked';" >&"${COPROC[1]}"
    read -r <&"${COPROC[0]}"
}

begin badstart
open_display 1280x720

# One broken start a line: the file to be named, the reason, and what breaks it.
starts=0
while read -r file reason breakage; do
    new_folder $((++starts)) "$project/scripts/demo.sql"
    cd "$folder"
    eval "$breakage"
    before=$(contents "$folder")
    start_program
    ended_with 1
    [[ $(contents "$folder") == "$before" ]] || fail "$breakage: the folder has changed"
    said=$(<"$place/stderr")
    [[ $(wc -l <"$place/stderr") == 1 && $said =~ $folder/$file.*($reason) ]] ||
        fail "$breakage: the program said \"$said\" instead of one line about $file: $reason"
done <<'END'
Rankelo.MDB not.found rm Rankelo.MDB
Rankelo.MDB not.found|folder rm Rankelo.MDB && mkdir Rankelo.MDB
Rankelo.MDB empty|table : >Rankelo.MDB
Rankelo.MDB not.a.quiz.database echo "Dear quiz master, these are the teams: ..." >Rankelo.MDB
Rankelo.MDB MaxScore sqlite3 Rankelo.MDB "ALTER TABLE Rounds DROP COLUMN MaxScore"
Rankelo.MDB damaged|malformed damage
Rankelo.MDB another.program.holds lock
Rankelo.INI CellPadX printf '[Application]\nFontSize=32\nCellPadX=wide\n' >Rankelo.INI
Rankelo.INI Footer printf '[Application]\nFooter=99999999999\n' >Rankelo.INI
END

# By its icon, where nobody reads the line: one box says it, with debug messages too.
ln -sf /dev/null "$place/stderr"
for debug in 0 1; do
    new_folder "by_icon_$debug"
    rm "$folder/Rankelo.MDB"
    printf '[Application]\nDebugMode=%s\n' "$debug" >"$folder/Rankelo.INI"
    start_program
    window "Application Error"
    picture "by-icon-$debug"
    press Return
    ended_with 1
done
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
press Return
window "Team Entry"
press Escape F8
window "Rankelo Results"
[[ $(contents "$folder") == "$before" ]] || fail "the read-only folder has changed"
