#!/usr/bin/env bash
# Runs a command beside a private CUPS server.  The server listens only on a
# socket in a temporary directory and has one queue, "vorlan-test" (override
# with VORLAN_TEST_QUEUE), a generic PostScript printer whose output goes to a
# file.  For the command:
#   CUPS_SERVER         the socket path
#   VORLAN_TEST_QUEUE   the queue name
#   VORLAN_CUPS_OUTPUT  the file each printed job is written to
# The server is stopped and everything removed afterwards, also on failure.
#
#   tools/with-cups.sh -- command args...
set -euo pipefail
[ "${1:-}" = "--" ] && shift
[ $# -gt 0 ] || { echo "usage: $0 -- command..." >&2; exit 2; }

queue=${VORLAN_TEST_QUEUE:-vorlan-test}
root=$(mktemp -d "${TMPDIR:-/tmp}/vorlan-cups.XXXXXX")
cupsd_pid=""
cleanup() {
  if [ -n "$cupsd_pid" ]; then
    kill "$cupsd_pid" 2>/dev/null || true
    wait "$cupsd_pid" 2>/dev/null || true
  fi
  rm -rf "$root"
}
trap cleanup EXIT
trap 'exit 130' INT TERM

mkdir -p "$root"/{conf/ppd,conf/ssl,spool/tmp,cache,state/certs,log,out}
chmod 755 "$root"
# Filters and the file backend run as the unprivileged user; they must be
# able to write the spool and the output file.
if [ "$(id -u)" = 0 ]; then
  run_user=lp
  chown -R lp:lp "$root/spool" "$root/cache" "$root/out" "$root/state"
  chmod 0710 "$root/spool"; chgrp lp "$root/spool"
else
  run_user=$(id -un)
fi
chmod 1777 "$root/spool/tmp"
socket="$root/cups.sock"

cat >"$root/conf/cupsd.conf" <<CONF
Listen $socket
LogLevel warn
MaxLogSize 0
Browsing No
WebInterface No
DefaultAuthType None
<Location />
  Order allow,deny
  Allow all
</Location>
<Location /admin>
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
CONF
cat >"$root/conf/cups-files.conf" <<CONF
User $run_user
Group lp
FileDevice Yes
SystemGroup root $(id -gn)
ServerRoot $root/conf
RequestRoot $root/spool
TempDir $root/spool/tmp
CacheDir $root/cache
StateDir $root/state
AccessLog $root/log/access_log
ErrorLog $root/log/error_log
PageLog $root/log/page_log
CONF
chmod 0640 "$root/conf/cupsd.conf" "$root/conf/cups-files.conf"

cupsd -f -c "$root/conf/cupsd.conf" -s "$root/conf/cups-files.conf" >"$root/log/stdout" 2>&1 &
cupsd_pid=$!
export CUPS_SERVER="$socket"
for _ in $(seq 1 200); do
  [ -S "$socket" ] && lpstat -r >/dev/null 2>&1 && break
  kill -0 "$cupsd_pid" 2>/dev/null || { cat "$root/log/"* >&2; echo "cupsd failed to start" >&2; exit 1; }
  sleep 0.05
done
lpstat -r >/dev/null 2>&1 || { cat "$root/log/"* >&2 || true; echo "cupsd did not answer" >&2; exit 1; }

output="$root/out/$queue.ps"
touch "$output"
[ "$(id -u)" = 0 ] && chown lp:lp "$output"
lpadmin -p "$queue" -E -v "file://$output" -m drv:///sample.drv/generic.ppd >"$root/log/lpadmin" 2>&1 ||
  { cat "$root/log/lpadmin" "$root/log/error_log" >&2 || true; echo "could not create the test queue" >&2; exit 1; }
lpadmin -d "$queue" >/dev/null 2>&1 || true
export VORLAN_TEST_QUEUE="$queue" VORLAN_CUPS_OUTPUT="$output"

set +e
"$@"
status=$?
set -e
exit $status
