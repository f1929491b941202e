#!/usr/bin/env bash
# Prints standings through a print service of our own, on a loopback port, and reads the sheets
# that come out: what stands on them, which printer is the default afterwards, and what happens
# when a printer is gone or the whole service deaf.
# The driver for printing into files works only as root.
((EUID == 0)) || exec sudo --preserve-env=RANKELO_APP_DIR,RANKELO_FOCUS_PROBE "$0"
source "$(dirname "$0")/../driver/driver.sh"
source "$(dirname "$0")/../driver/print_service.sh"

# open_list KEY: until the button that prints can be pressed; the key chooses another printer.
open_list() {
    focus cmdViewLeader
    go_to "Rankelo Results" Return
    focus cboPrinter
    [[ -z $1 ]] || press "$1"
    focus cmdPrint
}

laser_waits() {
    [[ $(lpstat -d) == "system default destination: Laser" && -z $(lpstat -o) ]] ||
        fail "another default printer, or a job that waits: $(lpstat -d -o)"
}

# print_in_vain KEY COMMAND...: the command spoils the printing, which is reported.
print_in_vain() {
    open_list "$1"
    "${@:2}"
    go_to "Application Error" Return
    go_to "Rankelo Results" Return
    go_to "$console" Escape
}

begin print
open_display 1280x720
open_print_service
for printer in Ink Laser; do # Their sheets keep the letters as text.
    lpadmin -p "$printer" -E -v cups-pdf:/ -m lsb/usr/cups-pdf/CUPS-PDF_opt.ppd -o PageSize=Letter \
        -o pdftops-renderer-default=pdftocairo 2>>"$place/lpadmin.log"
done
lpadmin -d Ink
new_folder Rankelo
# Three sheets. Two teams share the first place, one with a name that is too long.
sqlite3 -bail "$folder/Rankelo.MDB" "
    INSERT INTO Rounds VALUES ('r', 'Music', 1, 10);
    INSERT INTO Teams VALUES ('a', 'Last Orders'), ('b', 'Zoë & the <b>Ünïcödes</b> %1 %s'),
        ('c', 'Those Who Could Not Agree on a Name and So Chose This Longest One');
    INSERT INTO Results VALUES ('1', 'r', 'a', 6, 1), ('2', 'r', 'b', -3, 0), ('3', 'r', 'c', 12, 0);
    INSERT INTO Teams SELECT value, printf('Team %03d', value) FROM generate_series(3, 120);
    INSERT INTO Results SELECT 'x' || value, 'r', value, -1 - value, 0 FROM generate_series(3, 120)"
printf '[Application]\nDebugMode=1\n' >"$folder/Rankelo.INI"
start_program CUPS_SERVERROOT="$CUPS_SERVERROOT"
window "$console"

# The second printer becomes the default.
open_list Down
press Return
comes_to "Laser-$port" sh -c "lpstat -W completed -o | cut -d ' ' -f 1"
press space # one print is enough
go_to "$console" Escape
laser_waits
# There lies what somebody prints whom the system does not know.
find /var/spool/cups-pdf/ANONYMOUS -name "Rankelo_Results*-job_$port.pdf" -newer "$place/display" \
    -exec mv {} "$place/sheets.pdf" \;
# In a fixed pitch of 11 points a letter is 6.6 points wide. The left margin, blanks at the ends of
# lines and the blank foot of a page do not count.
diff - <(pdftotext -layout -fixed 6.6 "$place/sheets.pdf" - | tr -d '\f' |
    sed 's/^    //; s/ *$//' | cat -s | sed '${/^$/d}') >&2 <<END || fail "the sheets read otherwise"
Rankelo Results

Position  Team Name                                                   Total
--------------------------------------------------------------------------------

1         Last Orders                                                 12
1         Those Who Could Not Agree on a Name and So Chose This Longes 12
2         Zoë & the <b>Ünïcödes</b> %1 %s                             -3
$(for i in {3..120}; do printf '%-10sTeam %03d%52s-%d\n' "$i" "$i" "" $((i + 1)); done)
END
[[ $(pdfinfo "$place/sheets.pdf") =~ Pages:\ +3.*Page\ size:[^$'\n']*letter ]] ||
    fail "not 3 sheets of Letter: $(pdfinfo "$place/sheets.pdf")"

# A printer that takes nothing, and a service that has gone deaf.
print_in_vain Up cupsreject Ink
laser_waits
# The page for a printer that has gone meanwhile goes to the default one; at a paused printer it
# waits.
open_list Up
lpadmin -x Ink
cupsdisable Laser
press Return
comes_to "Laser-$((port + 1))" sh -c "lpstat -W not-completed -o | cut -d ' ' -f 1"
go_to "$console" Escape
cupsenable Laser
comes_to "Laser-$((port + 1))" sh -c "lpstat -W completed -o | grep -o Laser-$((port + 1))"
print_in_vain "" kill -STOP "$service"
kill -CONT "$service"
laser_waits
said_nothing
