#!/usr/bin/env bash
# Prints standings through a print service of our own, on a loopback port, and reads the sheets
# that come out: what stands on them, which printer is the default afterwards, and what happens
# when a printer or the whole service is gone.
#
# The driver for printing into files works only as root.
((EUID == 0)) || exec sudo env RANKELO_APP_DIR="${RANKELO_APP_DIR:-}" "$0"
source "$(dirname "$0")/../../scripts/stage/driver.sh"
source "$(dirname "$0")/../../scripts/stage/print_service.sh"

# Where the driver puts what somebody prints whom the system does not know.
out_tray=/var/spool/cups-pdf/ANONYMOUS
letter_width=6.6 # points, of a fixed pitch of 11 points

# make_printer NAME: one whose sheets keep the letters as text.
make_printer() {
    lpadmin -p "$1" -E -v cups-pdf:/ -m lsb/usr/cups-pdf/CUPS-PDF_opt.ppd -o PageSize=A4 \
        -o pdftops-renderer-default=pdftocairo 2>>"$place/lpadmin.log"
}

job_is_done() {
    lpstat -W completed -o | grep -q "^Hall-$1 "
}

# printed JOB PAPER PAGES: waits for the sheets of the print job in the hall, and compares their
# text with the one on standard input. The left margin, blanks at the ends of lines and the blank
# foot of a page do not count.
printed() {
    within_patience "job $1" job_is_done "$1"
    sheets=$(find "$out_tray" -name "*-job_$1.pdf" -newer "$place/display" -user nobody)
    [[ -f $sheets ]] || fail "there is no sheet: $(ls -l "$out_tray")"
    mv "$sheets" "$place/$1.pdf"
    diff <(cat) <(pdftotext -layout -fixed "$letter_width" "$place/$1.pdf" - | tr -d '\f' |
        sed 's/^    //; s/ *$//' | cat -s | sed '${/^$/d}') >&2 || fail "job $1 reads otherwise"
    [[ $(pdfinfo "$place/$1.pdf") =~ Pages:\ +$3.*Page\ size:[^$'\n']*$2 ]] ||
        fail "job $1 is not $3 sheets of $2: $(pdfinfo "$place/$1.pdf")"
}

open_standings() {
    press Return
    window "Rankelo Results"
}

close_standings() {
    press Escape
    window "$console"
}

# print_in_vain KEYS COMMAND...: once the list is open, the command spoils the printing; the keys
# lead to the printer's button, and its press is reported.
print_in_vain() {
    local keys=$1
    shift
    open_standings
    "$@"
    # shellcheck disable=SC2086 # one word a key
    press $keys Return
    window "Application Error"
    press Return
    window "Rankelo Results"
    close_standings
}

stop_service() {
    kill "$service"
    wait "$service" || true
}

the_hall_waits() {
    [[ $(lpstat -d) == "system default destination: Hall" && -z $(lpstat -o) ]] ||
        fail "another default printer, or a job that waits: $(lpstat -d -o)"
}

header="Position  Team Name                                                   Total"
rule=--------------------------------------------------------------------------------

begin print
open_display 1280x720
open_print_service
make_printer Bar
make_printer Hall
lpadmin -d Bar
new_folder Rankelo
printf '[Application]\nDebugMode=1\n' >"$folder/Rankelo.INI"
start_program CUPS_SERVERROOT="$CUPS_SERVERROOT"
window "$console"
press shift+Tab shift+Tab shift+Tab # to the button of the overall standings

# Nobody has come yet. The second printer becomes the default.
open_standings
press Tab Down Tab Return
printed 1 A4 1 <<END
Rankelo Results

$header
$rule
END
press space # one sheet is enough
close_standings
the_hall_waits

# Three sheets. Two share the first place, one with a name that is too long. The default is
# selected already.
sqlite3 -bail "$folder/Rankelo.MDB" "
    INSERT INTO Rounds VALUES ('r', 'Music', 1, 10);
    INSERT INTO Teams VALUES ('a', 'Last Orders'), ('b', 'Zoë & the Ünïcödes'),
        ('c', 'Those Who Could Not Agree on a Name and So Chose This Longest One');
    INSERT INTO Results VALUES ('1', 'r', 'a', 6, 1), ('2', 'r', 'b', -3, 0), ('3', 'r', 'c', 12, 0);
    INSERT INTO Teams SELECT value, printf('Team %03d', value) FROM generate_series(3, 120);
    INSERT INTO Results SELECT 'x' || value, 'r', value, -1 - value, 0 FROM generate_series(3, 120)"
lpadmin -p Hall -o PageSize=Letter
open_standings
press Tab Tab Return
printed 2 letter 3 <<END
Rankelo Results

$header
$rule

1         Last Orders                                                 12
1         Those Who Could Not Agree on a Name and So Chose This Longes 12
2         Zoë & the Ünïcödes                                          -3
$(for i in {3..120}; do printf '%-10sTeam %03d%52s-%d\n' "$i" "$i" "" $((i + 1)); done)
END
close_standings
fonts=$(pdffonts "$place/2.pdf" | tail -n +3)
[[ $(grep -cE 'Mono|Courier' <<<"$fonts") == 1 && $(wc -l <<<"$fonts") == 2 ]] ||
    fail "not one fixed pitch font and the title's: $fonts"

# A printer that takes nothing, one that is gone, a service that has gone
# deaf, one that is gone, and a system without any printer.
print_in_vain "Tab Up Tab" cupsreject Bar
the_hall_waits
print_in_vain "Tab Up Tab" lpadmin -x Bar
print_in_vain "Tab Tab" kill -STOP "$service"
open_standings
close_standings
kill -CONT "$service"
print_in_vain "Tab Tab" stop_service
print_in_vain "Tab Tab" true
run_print_service
the_hall_waits

press Escape
window "Exit Application"
press alt+y
ended_with 0
[[ ! -s $place/stderr ]] || fail "the program said: $(<"$place/stderr")"
