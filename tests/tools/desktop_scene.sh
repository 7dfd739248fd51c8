# What the tests that start the desktop program share, to be sourced: a home of their own in $scratch without a
# screen, $open, the process of the window that is open, and waiting for what a window does.
scratch=$(mktemp -d)
open=
cleanup() {
  [[ -z $open ]] || kill -9 "$open" 2>/dev/null || true
  rm -rf "$scratch"
}
trap cleanup EXIT
mkdir -m 700 "$scratch/runtime"
export BRANTLOW_HOME=$scratch/app HOME=$scratch XDG_RUNTIME_DIR=$scratch/runtime XDG_CONFIG_HOME=$scratch/config
unset DISPLAY WAYLAND_DISPLAY

fail() {
  echo "FAILED: $*"
  cat "$scratch"/*.txt
  exit 1
}
# wait_for WHAT COMMAND...: until the command succeeds, at most four minutes.
wait_for() {
  local what=$1 tries
  shift
  for ((tries = 0; tries < 2400; tries++)); do
    if "$@" 2>/dev/null; then return; fi
    sleep 0.1
  done
  fail "waited too long for $what"
}
# start ARGUMENT...: the program, with a window that has taken the folder.
start() {
  "$program" "$@" >"$scratch/open.txt" 2>&1 &
  open=$!
  wait_for "the window" test -e "$BRANTLOW_HOME/Brantlow.lock"
}
# Tells the window to end, which it does in order.
close() {
  kill -TERM "$open"
  local status=0
  wait "$open" || status=$?
  open=
  [[ $status -eq 0 ]] || fail "the window ended with $status"
}
