#!/usr/bin/env bash
# Prints standings through a print service of our own, on a loopback port, and reads the sheets
# that come out: what stands on them, which printer is the default afterwards, and what happens
# when a printer or the whole service is gone.
#
# The driver for printing into files works only as root.
((EUID == 0)) || exec sudo env RANKELO_APP_DIR="${RANKELO_APP_DIR:-}" "$0"
source "$(dirname "$0")/../driver/driver.sh"
source "$(dirname "$0")/../driver/print_service.sh"

# Where the driver puts what somebody prints whom the system does not know.
out_tray=/var/spool/cups-pdf/ANONYMOUS
letter_width=6.6 # points, of a fixed pitch of 11 points
header="Position  Team Name                                                   Total"
rule=--------------------------------------------------------------------------------

job_is_done() {
    lpstat -W completed -o | grep -q "^Hall-$1 "
}

# print_standings KEYS JOB PAPER PAGES: the keys lead from the opened list to the printer's button.
# Compares the sheets with the rows on standard input. The left margin, blanks at the ends of lines
# and the blank foot of a page do not count.
print_standings() {
    press Return
    window "Rankelo Results"
    # shellcheck disable=SC2086 # one word a key
    press $1 Return
    within_patience "job $2" job_is_done "$2"
    press space Escape # one print is enough
    window "$console"
    find "$out_tray" -name "*-job_$2.pdf" -newer "$place/display" -exec mv {} "$place/$2.pdf" \;
    diff <(printf '%s\n' "Rankelo Results" "" "$header" "$rule" && cat) \
        <(pdftotext -layout -fixed "$letter_width" "$place/$2.pdf" - | tr -d '\f' |
            sed 's/^    //; s/ *$//' | cat -s | sed '${/^$/d}') >&2 || fail "job $2 reads otherwise"
    [[ $(pdfinfo "$place/$2.pdf") =~ Pages:\ +$4.*Page\ size:[^$'\n']*$3 ]] ||
        fail "job $2 is not $4 sheets of $3: $(pdfinfo "$place/$2.pdf")"
    the_hall_waits
}

the_hall_waits() {
    [[ $(lpstat -d) == "system default destination: Hall" && -z $(lpstat -o) ]] ||
        fail "another default printer, or a job that waits: $(lpstat -d -o)"
}

# print_in_vain KEYS COMMAND...: once the list is open, the command spoils the printing, which is
# reported.
print_in_vain() {
    press Return
    window "Rankelo Results"
    "${@:2}"
    # shellcheck disable=SC2086
    press $1 Return
    window "Application Error"
    press Return
    window "Rankelo Results"
    press Escape
    window "$console"
}

stop_service() {
    kill "$service"
    wait "$service" || true
}

begin print
open_display 1280x720
open_print_service
for printer in Bar Hall; do # Their sheets keep the letters as text.
    lpadmin -p "$printer" -E -v cups-pdf:/ -m lsb/usr/cups-pdf/CUPS-PDF_opt.ppd -o PageSize=A4 \
        -o pdftops-renderer-default=pdftocairo 2>>"$place/lpadmin.log"
done
lpadmin -d Bar
new_folder Rankelo
printf '[Application]\nDebugMode=1\n' >"$folder/Rankelo.INI"
start_program CUPS_SERVERROOT="$CUPS_SERVERROOT"
window "$console"
press shift+Tab shift+Tab shift+Tab # to the button of the overall standings

# Nobody has come yet. The second printer becomes the default.
print_standings "Tab Down Tab" 1 A4 1 </dev/null

# Three sheets. Two share the first place, one with a name that is too long. The default is
# selected already.
sqlite3 -bail "$folder/Rankelo.MDB" "
    INSERT INTO Rounds VALUES ('r', 'Music', 1, 10);
    INSERT INTO Teams VALUES ('a', 'Last Orders'), ('b', 'Zoë & the <b>Ünïcödes</b> %1 %s'),
        ('c', 'Those Who Could Not Agree on a Name and So Chose This Longest One');
    INSERT INTO Results VALUES ('1', 'r', 'a', 6, 1), ('2', 'r', 'b', -3, 0), ('3', 'r', 'c', 12, 0);
    INSERT INTO Teams SELECT value, printf('Team %03d', value) FROM generate_series(3, 120);
    INSERT INTO Results SELECT 'x' || value, 'r', value, -1 - value, 0 FROM generate_series(3, 120)"
lpadmin -p Hall -o PageSize=Letter
print_standings "Tab Tab" 2 letter 3 <<END

1         Last Orders                                                 12
1         Those Who Could Not Agree on a Name and So Chose This Longes 12
2         Zoë & the <b>Ünïcödes</b> %1 %s                             -3
$(for i in {3..120}; do printf '%-10sTeam %03d%52s-%d\n' "$i" "$i" "" $((i + 1)); done)
END
fonts=$(pdffonts "$place/2.pdf" | tail -n +3)
[[ $(grep -cE 'Mono|Courier' <<<"$fonts") == 1 && $(wc -l <<<"$fonts") == 2 ]] ||
    fail "not one fixed pitch font and the title's: $fonts"

# A printer that takes nothing, a service that has gone deaf, one that is gone,
# and a system without any printer.
print_in_vain "Tab Up Tab" cupsreject Bar
the_hall_waits
print_in_vain "Tab Tab" kill -STOP "$service"
kill -CONT "$service"
print_in_vain "Tab Tab" stop_service
run_print_service
the_hall_waits
is_gone && fail "the program ended"
[[ ! -s $place/stderr ]] || fail "the program said: $(<"$place/stderr")"
