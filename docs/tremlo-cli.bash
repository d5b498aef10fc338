# Completion of tremlo-cli for bash. Commands and options are asked of the program itself.
_tremlo_cli() {
  local program=${COMP_WORDS[0]} word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
  local commands first=${COMP_WORDS[1]-} second=${COMP_WORDS[2]-} command
  COMPREPLY=()
  # "name ARGUMENTS" or "group name ARGUMENTS", two blanks before it
  commands=$("$program" --help 2>/dev/null | sed -nE 's/^  ([a-z]+( [a-z]+)?)( .*)?$/\1/p')
  command=$first
  if grep -q "^$first " <<<"$commands"; then
    if [ "$COMP_CWORD" -eq 2 ]; then
      mapfile -t COMPREPLY < <(compgen -W "$(sed -n "s/^$first //p" <<<"$commands")" -- "$word")
      return
    fi
    command="$first $second"
  fi
  if [ "$COMP_CWORD" -eq 1 ]; then
    mapfile -t COMPREPLY < <(compgen -W "$(cut -d' ' -f1 <<<"$commands" | sort -u) --help --version" -- "$word")
  elif [[ $word == -* ]]; then
    # shellcheck disable=SC2086  # a group and its command are two words
    mapfile -t COMPREPLY < <(compgen -W "--json --data --help --version
      $("$program" $command --help 2>/dev/null | grep -oE '^  --[a-z-]+')" -- "$word")
  elif [[ $before == --data || ($before == --out && $command == batch) ]]; then
    mapfile -t COMPREPLY < <(compgen -d -- "$word")
    compopt -o filenames 2>/dev/null
  else
    mapfile -t COMPREPLY < <(compgen -f -- "$word")
    compopt -o filenames 2>/dev/null
  fi
}
complete -F _tremlo_cli tremlo-cli
