# A print service of our own, on a loopback port. Sourced after driver.sh.

author=quizmaster-$$ # who prints

# open_print_service: after a display has been opened; the service ends with it.
open_print_service() {
    local root=$place/print
    mkdir -p "$root"/{conf/ppd,spool/tmp,cache,run,log}
    cat >"$root/conf/cups-files.conf" <<END
ServerRoot $root/conf
RequestRoot $root/spool
TempDir $root/spool/tmp
CacheDir $root/cache
StateDir $root/run
AccessLog $root/log/access
ErrorLog $root/log/error
PageLog $root/log/page
SystemGroup root
END
    port=$((RANDOM % 20000 + 30000))
    while (: <>"/dev/tcp/127.0.0.1/$port") 2>/dev/null; do
        port=$((port + 1))
    done
    cat >"$root/conf/cupsd.conf" <<END
Listen 127.0.0.1:$port
Browsing No
WebInterface No
<Policy default>
<Limit All>
Order deny,allow
</Limit>
</Policy>
END
    cat >"$root/conf/client.conf" <<END
ServerName 127.0.0.1:$port
User $author
END
    # What each user chooses lies in the home folder, root's in the configuration's on some systems.
    export CUPS_SERVERROOT=$root/conf HOME=$place/home
    run_print_service
}

run_print_service() {
    cupsd -f -c "$CUPS_SERVERROOT/cupsd.conf" -s "$CUPS_SERVERROOT/cups-files.conf" &
    service=$!
    display_processes+=("$service")
    within_patience "the print service" service_answers
}

service_answers() {
    [[ $(lpstat -r 2>&1) == "scheduler is running" ]]
}
