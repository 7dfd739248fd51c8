#!/usr/bin/env bash
# Calls the practice market's program: how it starts, what it prints and writes, how it ends.
#
#   program_test.sh PROGRAM
set -euo pipefail
program=$1
scratch=$(mktemp -d)
started=()
trap 'kill "${started[@]}" 2>/dev/null || true; rm -rf "$scratch"' EXIT
failures=0

expect() {
  if [[ ! $3 =~ ^$2$ ]]; then
    printf 'FAILED: %s\nexpected: %s\nfound: %s\n' "$1" "$2" "$3"
    failures=$((failures + 1))
  fi
}

# start ARGUMENT...: starts the market; $market is its process, $address what it prints.
start() {
  : >"$scratch/out"
  "$program" "$@" >"$scratch/out" 2>"$scratch/err" &
  market=$!
  started+=("$market")
  until [[ -s $scratch/out ]] || ! kill -0 "$market" 2>/dev/null; do sleep 0.02; done
  address=$(cat "$scratch/out")
}

end_of() {
  kill "-$1" "$market"
  status=0
  wait "$market" || status=$?
}

# first_line PATH: the status line of the reply, over a bare connection.
first_line() {
  local port=${address##*:} line=
  exec 3<>"/dev/tcp/127.0.0.1/$port"
  printf 'GET %s HTTP/1.1\r\nHost: x\r\nConnection: close\r\n\r\n' "$1" >&3
  read -r -t 10 line <&3 || true
  exec 3>&- 3<&-
  printf '%s' "${line%$'\r'}"
}

for signal in TERM INT; do
  start --today 2026-11-20
  expect "the address" 'http://127\.0\.0\.1:[0-9]+' "$address"
  expect "a page" 'HTTP/1.1 200 OK' "$(first_line /q/ks?s=A)"
  end_of "$signal"
  expect "the end at $signal" 0 "$status"
done

# A Hosts.ini of its own names the address, and the same port is taken again.
start --hosts "$scratch/Hosts.ini"
first=$address
expect "the mark" '# practice market' "$(head -n 1 "$scratch/Hosts.ini" | tr -d '\r')"
expect "the host" "QuoteHost=$first" "$(grep '^QuoteHost=' "$scratch/Hosts.ini" | tr -d '\r')"
end_of TERM
start --hosts "$scratch/Hosts.ini"
expect "the port of last time" "$first" "$address"

# A port in use: one that was asked for is refused, one of last time is given up.
status=0
"$program" --port "${first##*:}" 2>"$scratch/err2" || status=$?
expect "the status at a port in use" 1 "$status"
expect "the sentence" "Port ${first##*:} cannot be taken: it is in use or reserved" "$(cat "$scratch/err2")"
other=$market
start --hosts "$scratch/Hosts.ini"
[[ $address != "$first" ]] || expect "another port" "not $first" "$address"
expect "the host after it" "QuoteHost=$address" "$(grep '^QuoteHost=' "$scratch/Hosts.ini" | tr -d '\r')"
end_of TERM
market=$other
end_of TERM

# A user's own file stays.
printf 'QuoteHost=https://mine\n' >"$scratch/mine.ini"
start --hosts "$scratch/mine.ini"
expect "a user's file" 'QuoteHost=https://mine' "$(cat "$scratch/mine.ini")"
expect "what is said of it" "$scratch/mine.ini: not the practice market's own; left as it is" "$(cat "$scratch/err")"
end_of TERM

# It ends with the program that started it, were that killed.
cat >"$scratch/parent" <<'END'
#!/usr/bin/env bash
"$1" --with-parent >"$2" &
echo $! >"$2.pid"
wait
END
chmod +x "$scratch/parent"
"$scratch/parent" "$program" "$scratch/child" &
parent=$!
started+=("$parent")
until [[ -s $scratch/child && -s $scratch/child.pid ]]; do sleep 0.02; done
child=$(cat "$scratch/child.pid")
started+=("$child")
kill -KILL "$parent"
{ wait "$parent" || true; } 2>/dev/null
# A process that has ended may wait for init to take notice of it; its command line is empty by then.
gone=no
for ((i = 0; i < 500; i++)); do
  if ! grep -qs . "/proc/$child/cmdline"; then
    gone=yes
    break
  fi
  sleep 0.02
done
expect "gone with its parent" yes "$gone"

status=0
"$program" --prices "$scratch/none" 2>"$scratch/err2" || status=$?
expect "the status without prices" 1 "$status"
expect "its sentence" "$scratch/none: cannot be read; it holds no practice prices" "$(cat "$scratch/err2")"
status=0
"$program" --today never 2>"$scratch/err2" || status=$?
expect "the status of wrong usage" 2 "$status"
expect "its sentence" "--today: 'never' is no day; YYYY-MM-DD" "$(cat "$scratch/err2")"

exit $((failures > 0))
