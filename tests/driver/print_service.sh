# A print service of our own, on a loopback port. Sourced after driver.sh.

# open_print_service: after a display has been opened; the service ends with it.
open_print_service() {
    local root=$place/print
    port=$((RANDOM % 20000 + 30000))
    while (: <>"/dev/tcp/127.0.0.1/$port") 2>/dev/null; do
        port=$((port + 1))
    done
    mkdir -p "$root"/{conf/ppd,spool/tmp,cache,run,log}
    printf '%s %s\n' ServerRoot "$root/conf" RequestRoot "$root/spool" TempDir "$root/spool/tmp" \
        CacheDir "$root/cache" StateDir "$root/run" SystemGroup root AccessLog "$root/log/access" \
        ErrorLog "$root/log/error" PageLog "$root/log/page" >"$root/conf/cups-files.conf"
    echo "NextJobId $port" >"$root/cache/job.cache" # another number than a neighbour's job
    printf '%s\n' "Listen 127.0.0.1:$port" "Browsing No" "WebInterface No" "<Policy default>" \
        "<Limit All>" "Order deny,allow" "</Limit>" "</Policy>" >"$root/conf/cupsd.conf"
    printf '%s\n' "ServerName 127.0.0.1:$port" "User quizmaster-$$" >"$root/conf/client.conf"
    # What each user chooses lies in the home folder, root's in the configuration's on some systems.
    export CUPS_SERVERROOT=$root/conf HOME=$place/home
    cupsd -f -c "$CUPS_SERVERROOT/cupsd.conf" -s "$CUPS_SERVERROOT/cups-files.conf" &
    service=$!
    display_processes+=("$service")
    comes_to "scheduler is running" lpstat -r
}
