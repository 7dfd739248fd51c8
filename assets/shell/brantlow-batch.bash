# Completion of brantlow-batch for bash: commands, options and files, as the tool's own help tells them.
# Source this file, or install it where bash-completion looks for a file named brantlow-batch.

# The names in the help's list of commands.
_brantlow_batch_commands() {
  "$1" --help 2>/dev/null | awk '/^Commands:/ { on = 1; next } /^[A-Z]/ { on = 0 } on && NF { print $1 }'
}

# The options in the help of a command, or of the tool without one.
_brantlow_batch_options() {
  "$@" --help 2>/dev/null | awk '$1 ~ /^--/ { print $1 }'
}

# The word behind COMMAND's place in the usage line: FILE, TICKER, program|database ...
_brantlow_batch_operand() {
  "$1" "$2" --help 2>/dev/null | awk 'NR == 1 { print $4 }'
}

_brantlow_batch() {
  local tool=${COMP_WORDS[0]} word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
  local command='' app='' i
  for ((i = 1; i < COMP_CWORD; i++)); do
    case ${COMP_WORDS[i]} in
      --app) app=${COMP_WORDS[++i]:-} ;;
      --today | --time) ((i++)) ;;
      -*) ;;
      *) command=${COMP_WORDS[i]}; break ;;
    esac
  done
  local words=''
  if [[ $before == --app ]]; then
    mapfile -t COMPREPLY < <(compgen -d -- "$word")
    return
  elif [[ $before == --interval ]]; then
    words='daily weekly monthly'
  elif [[ $before == --style ]]; then
    words='default candlestick'
  elif [[ $before == --years ]]; then
    words='2 5 10 20'
  elif [[ $word == -* ]]; then
    words=$(_brantlow_batch_options "$tool" ${command:+"$command"})
  elif [[ -z $command ]]; then
    words=$(_brantlow_batch_commands "$tool")
  else
    local operand
    operand=$(_brantlow_batch_operand "$tool" "$command")
    case $operand in
      FILE | A)
        local data=${app:-$(dirname "$(command -v "$tool")")}/Data
        words=$(cd "$data" 2>/dev/null && compgen -G '*.ddq') ;;
      *'|'*) words=${operand//|/ } ;;
    esac
  fi
  mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}

complete -F _brantlow_batch brantlow-batch
