#!/usr/bin/env bash
# The private print server: a job sent to its queue arrives as a PostScript
# file that ghostscript reads back with the text that was printed.  Runs
# inside the suite's own server when there is one, else starts one.
set -euo pipefail
tools=$1
if [ -z "${CUPS_SERVER:-}" ] || [ -z "${VORLAN_CUPS_OUTPUT:-}" ]; then
  exec "$tools/with-cups.sh" -- "$0" "$@"
fi
case "$CUPS_SERVER" in /tmp/*|"${TMPDIR:-/tmp}"/*) ;; *) echo "not a private server: $CUPS_SERVER"; exit 1 ;; esac

job=$(mktemp --suffix=.ps)
trap 'rm -f "$job"' EXIT
printf '%%!PS\n/Helvetica findfont 24 scalefont setfont 72 700 moveto (harness page) show showpage\n' > "$job"
: > "$VORLAN_CUPS_OUTPUT" 2>/dev/null || true
lp -d "$VORLAN_TEST_QUEUE" "$job" >/dev/null
for _ in $(seq 1 150); do
  [ -s "$VORLAN_CUPS_OUTPUT" ] && [ -z "$(lpstat -o "$VORLAN_TEST_QUEUE" 2>/dev/null)" ] && break
  sleep 0.1
done
head -c 4 "$VORLAN_CUPS_OUTPUT" | grep -q '%!PS' || { echo "no PostScript output"; exit 1; }
text=$(gs -q -dNOPAUSE -dBATCH -dSAFER -sDEVICE=txtwrite -sOutputFile=- "$VORLAN_CUPS_OUTPUT")
echo "$text" | grep -q 'harness page' || { echo "printed text not found: $text"; exit 1; }
echo "cups harness: 1 passed, 0 failed"
