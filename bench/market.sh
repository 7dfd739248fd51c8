# The practice market on the loopback, for the benchmarks that read this file; $programs is where the programs lie.

market=

# start_market PRICES DAY HOSTS: in place of one that runs; the file HOSTS takes its address.
start_market() {
  stop_market
  local pipe
  pipe=$(mktemp -u)
  mkfifo "$pipe"
  "$programs/brantlow-market" --prices "$1" --today "$2" --hosts "$3" > "$pipe" &
  market=$!
  head -n 1 < "$pipe" > /dev/null
  rm "$pipe"
}

stop_market() {
  [[ -z $market ]] || kill "$market"
  market=
}
