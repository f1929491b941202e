#!/usr/bin/env bash
# Prints standings through a print service of our own, on a loopback port, and reads the sheets
# that come out: what stands on them, which printer is the default afterwards, and what happens
# when a printer or the whole service is gone.
#
# The driver for printing into files works only as root.
((EUID == 0)) || exec sudo env RANKELO_APP_DIR="${RANKELO_APP_DIR:-}" "$0"
source "$(dirname "$0")/driver.sh"
source "$(dirname "$0")/print_service.sh"

# Where the driver puts what somebody prints whom the system does not know.
out_tray=/var/spool/cups-pdf/ANONYMOUS
letter_width=6.6 # points, of a fixed pitch of 11 points

# make_printer NAME PAPER: one whose sheets keep the letters as text.
make_printer() {
    lpadmin -p "$1" -E -v cups-pdf:/ -m lsb/usr/cups-pdf/CUPS-PDF_opt.ppd -o "PageSize=$2" \
        -o pdftops-renderer-default=pdftocairo 2>>"$place/lpadmin.log"
}

default_is() {
    [[ $(lpstat -d) == "system default destination: $1" ]] ||
        fail "the default printer is not $1: $(lpstat -d)"
}

# printed PRINTER JOB: waits until the sheets of the print job are there, and reads them.
printed() {
    within_patience "job $2 on $1" job_is_done "$1-$2"
    sheets=$(find "$out_tray" -name "*-job_$2.pdf" -newer "$place/display" -user nobody)
    [[ -f $sheets ]] || fail "there is no sheet: $(ls -l "$out_tray")"
    mv "$sheets" "$place/$2.pdf"
    pdftotext -layout -fixed "$letter_width" "$place/$2.pdf" "$place/$2.txt"
}

job_is_done() {
    lpstat -W completed -o | grep -q "^$1 "
}

# reads JOB: compares the sheets with the text on standard input. The left margin, blanks at the
# ends of lines and the blank foot of a page do not count.
reads() {
    diff <(cat) <(tr -d '\f' <"$place/$1.txt" | sed 's/^    //; s/ *$//' | cat -s |
        sed '${/^$/d}') >&2 || fail "job $1 reads otherwise"
}

paper_is() {
    pdfinfo "$place/$1.pdf" | grep -q "^Page size:.*$2" ||
        fail "job $1 is not on $2: $(pdfinfo "$place/$1.pdf")"
}

in_fixed_pitch() {
    local fonts
    fonts=$(pdffonts "$place/$1.pdf" | tail -n +3)
    [[ $(grep -cE 'Mono|Courier' <<<"$fonts") == 1 && $(wc -l <<<"$fonts") == 2 ]] ||
        fail "job $1 is not in one fixed pitch font and the title's: $fonts"
}

open_standings() {
    press Return
    window "Rankelo Results"
}

close_standings() {
    press Escape
    window "$console"
}

# print_in_vain KEY...: the keys lead from the list to the printer's button; its press is reported.
print_in_vain() {
    press "$@" Return
    window "Application Error"
    picture print-in-vain
    press Return
    window "Rankelo Results"
    close_standings
}

nothing_changed() {
    default_is Hall
    [[ -z $(lpstat -o) ]] || fail "a job is waiting: $(lpstat -o)"
}

header="Position  Team Name                                                   Total"
rule=--------------------------------------------------------------------------------

begin print
open_display 1280x720
open_print_service
make_printer Bar A4
make_printer Hall A4
lpadmin -d Bar
new_folder Rankelo
printf '[Application]\nDebugMode=1\n' >"$folder/Rankelo.INI"
start_program CUPS_SERVERROOT="$CUPS_SERVERROOT"
window "$console"
press shift+Tab shift+Tab shift+Tab # to the button of the overall standings

# Nobody has come yet. The second printer becomes the default.
open_standings
press Tab Down
picture choose-printer
press Tab Return
printed Hall 1
press space # one sheet is enough
close_standings
default_is Hall
reads 1 <<END
Rankelo Results

$header
$rule
END
paper_is 1 A4

# Two share the first place, one with a name that is too long. The default is selected already.
sqlite3 -bail "$folder/Rankelo.MDB" "
    INSERT INTO Rounds VALUES ('r', 'Music', 1, 10);
    INSERT INTO Teams VALUES ('a', 'Last Orders'), ('b', 'Zoë & the Ünïcödes'),
        ('c', 'Those Who Could Not Agree on a Name and So Chose This Longest One');
    INSERT INTO Results VALUES ('1', 'r', 'a', 6, 1), ('2', 'r', 'b', -3, 0), ('3', 'r', 'c', 12, 0)"
lpadmin -p Hall -o PageSize=Letter
open_standings
press Tab Tab Return
printed Hall 2
close_standings
reads 2 <<END
Rankelo Results

$header
$rule

1         Last Orders                                                 12
1         Those Who Could Not Agree on a Name and So Chose This Longes 12
2         Zoë & the Ünïcödes                                          -3
END
paper_is 2 letter
in_fixed_pitch 2

# So many that they need three sheets.
sqlite3 -bail "$folder/Rankelo.MDB" "
    DELETE FROM Teams; DELETE FROM Results;
    INSERT INTO Teams SELECT value, printf('Team %03d', value) FROM generate_series(1, 120);
    INSERT INTO Results SELECT value, 'r', value, 121 - value, 0 FROM generate_series(1, 120)"
open_standings
press Tab Tab Return
printed Hall 3
close_standings
reads 3 <<END
Rankelo Results

$header
$rule

$(for i in {1..120}; do printf '%-10sTeam %03d%52s%d\n' "$i" "$i" "" $((121 - i)); done)
END
[[ $(pdfinfo "$place/3.pdf" | sed -n 's/^Pages: *//p') == 3 ]] || fail "not three sheets"

# A printer that is stopped, one that takes nothing, one that is gone when the button is pressed.
cupsdisable Bar
open_standings
print_in_vain Tab Up Tab
nothing_changed
cupsenable Bar
cupsreject Bar
open_standings
print_in_vain Tab Up Tab
nothing_changed
open_standings
lpadmin -x Bar
print_in_vain Tab Up Tab
nothing_changed

# A service that has gone deaf, one that is gone, and a system without any printer.
open_standings
kill -STOP "$service"
print_in_vain Tab Tab
open_standings
close_standings
kill -CONT "$service"
nothing_changed
open_standings
kill "$service"
wait "$service" || true
print_in_vain Tab Tab
open_standings
picture no-printer
print_in_vain Tab Tab
run_print_service
nothing_changed

press Escape
window "Exit Application"
press alt+y
ended_with 0
[[ ! -s $place/stderr ]] || fail "the program said: $(<"$place/stderr")"
