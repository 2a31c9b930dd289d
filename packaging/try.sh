#!/usr/bin/env bash
# In a bare Debian that holds the two packages in /packages: installs them, starts the program, builds the example
# host against them, and removes them without a trace. Run by ./dev package try.
set -euo pipefail
export DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8
quietly() {
    local log
    log=$(mktemp)
    "$@" >"$log" 2>&1 || { echo "failed: $*"; tail -c 3000 "$log"; exit 1; }
}

quietly apt-get update
quietly apt-get install -y --no-install-recommends xvfb xdotool imagemagick sqlite3 g++ make # what tries it
find / -xdev \( -path /proc -o -path /tmp -o -path /var -o -path /packages \) -prune -o -print | sort >/tmp/before
quietly apt-get install -y --no-install-recommends /packages/korvanta_*.deb
korvanta-host --version
/packages/display.sh /usr/bin/korvanta-host
cat >/tmp/print.play <<'PLAY'
company demo
show
menu "چاپ ..."
expect form TPrintForm
click PdfBtn
click OkBtn
expect file "PDF/J_BASE_MOZD_1.pdf" contains "%%EOF"
PLAY
QT_QPA_PLATFORM=offscreen korvanta-play /tmp/print.play

quietly apt-get install -y --no-install-recommends /packages/libpaymentkorvanta-dev_*.deb
quietly cmake -S /usr/share/doc/libpaymentkorvanta-dev/examples/host -B /tmp/example
quietly cmake --build /tmp/example
HOME=/tmp/home QT_QPA_PLATFORM=offscreen timeout 20 korvanta-host --demo --employees 5 --company /tmp/a.company 2>/dev/null &
sleep 8 && kill $!
korvanta-host --check /tmp/a.company
(HOME=/tmp/home QT_QPA_PLATFORM=offscreen timeout 5 /tmp/example/payroll-host /tmp/a.company || [ $? -eq 124 ])
echo "the example host ran"

dpkg -L korvanta libpaymentkorvanta-dev | grep korvanta | sort -u >/tmp/own
quietly apt-get purge -y korvanta libpaymentkorvanta-dev
quietly apt-get autoremove -y --purge
while read -r path; do
    [ ! -e "$path" ] || { echo "left behind: $path"; exit 1; }
done </tmp/own
find / -xdev \( -path /proc -o -path /tmp -o -path /var -o -path /packages \) -prune -o -print | sort >/tmp/after
left=$(comm -13 /tmp/before /tmp/after | grep -i korvanta || true)
[ -z "$left" ] || { echo "left behind: $left"; exit 1; }
echo "installed, started, printed, built against and removed without a trace"
