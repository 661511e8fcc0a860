#!/usr/bin/env bash
# Installs what is missing, builds the workstation, creates the demo station on first use,
# and runs the workstation on it. Demo login: ADMIN / korvane.
set -euo pipefail
cd "$(dirname "$0")"
source scripts/common.sh
ensure_packages

build=build/release
configure_and_build "$build" RelWithDebInfo -- korvane korvane-station

export KORVANE_STATION="${KORVANE_STATION:-${XDG_DATA_HOME:-$HOME/.local/share}/korvane/station}"
if [ ! -f "$KORVANE_STATION/station.ini" ]; then
  mkdir -p "$(dirname "$KORVANE_STATION")"
  "$build/bin/korvane-station" create "$KORVANE_STATION"
fi
echo "Station: $KORVANE_STATION (log in $KORVANE_STATION/log/)"

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ] && [ -z "${QT_QPA_PLATFORM:-}" ]; then
  echo "No display found: running on a virtual X display (xvfb-run)."
  exec xvfb-run -a -s "-screen 0 1280x800x24" "$build/bin/korvane"
fi
exec "$build/bin/korvane"
