#!/bin/bash
# The dialog as a screen reader finds it, in a session of its own: accessibility_test.sh BIN
# Skipped (77) where the accessibility bus or its bindings for Python are missing.
set -u
bin=$1
source "$(dirname "$0")/desktop.bash"
need dbus-run-session
/usr/bin/python3 -c 'import gi; gi.require_version("Atspi", "2.0"); from gi.repository import Atspi' ||
  { echo 'no AT-SPI for Python'; exit 77; }

# The list of step files and the preview are to be met too.
mkdir -p config/listwright
printf '[Listwright]\nDisplay=FilesPreview\n' >config/listwright/steps.ini
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 QT_ACCESSIBILITY=1
unset DBUS_SESSION_BUS_ADDRESS AT_SPI_BUS_ADDRESS
dbus-run-session -- /usr/bin/python3 "$tests/accessibility_walk.py" "$bin/listwright" ||
  fail "the walk ended with $?"
# The dialog goes without a bus that says nothing.
serve_badly silent
AT_SPI_BUS_ADDRESS=unix:path=$work/silent begin timeout 20 "$bin/listwright"
keys ctrl+q
ended 1
exit "$failed"
