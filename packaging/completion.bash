# Completion for triaxlab and triaxlab-cli, for the package bash-completion. What there is to choose from the programs
# say themselves, by --help: commands, options and their values. The help is the standard input of these functions.

_triaxlab_commands() { sed -n '/^Subcommands:/,$ s/^  \([a-z-]*\) .*/\1/p'; }

_triaxlab_options() { sed -n 's/^ *\(-h,\)\{0,1\}\(-[-a-z0-9]*\).*/\2/p'; }

# _triaxlab_takes_value OPTION: whether a value follows it, whose name then stands one blank behind.
_triaxlab_takes_value() { grep -q "^ *$1 [^ ]"; }

# _triaxlab_choices NAME: what an option or argument may be: NAME TEXT:{one,other} or NAME one|other.
_triaxlab_choices() {
  sed -n -e "s/^ *$1 TEXT:{\([^}]*\)}.*/\1/p" -e "s/^ *$1 \([^ ]*|[^ ]*\).*/\1/p" | tr ',|' '  '
}

_triaxlab() {
  local cur prev words cword
  _init_completion || return
  local program=$1 help command="" arguments=0 i
  help=$("$program" --help 2>/dev/null) || return
  for ((i = 1; i < cword; i++)); do
    if [[ ${words[i]} == -* ]]; then
      if _triaxlab_takes_value "${words[i]}" <<<"$help"; then ((++i)); fi
    elif [ -z "$command" ]; then
      command=${words[i]}
      help=$("$program" "$command" --help 2>/dev/null) || return
    else
      ((++arguments))
    fi
  done

  local choices=""
  if [[ $prev == -* ]] && _triaxlab_takes_value "$prev" <<<"$help"; then
    choices=$(_triaxlab_choices "$prev" <<<"$help")
  elif [[ $cur == -* ]]; then
    choices=$(_triaxlab_options <<<"$help")
  elif [ -z "$command" ]; then
    choices=$(_triaxlab_commands <<<"$help")
  elif [ "$arguments" -eq 0 ]; then
    choices=$(_triaxlab_choices '[A-Z]*' <<<"$help")
  fi
  if [ -n "$choices" ]; then
    mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$cur")
  elif [[ $prev == --app || $prev == --data ]]; then
    _filedir -d
  else
    _filedir
  fi
} && complete -F _triaxlab triaxlab triaxlab-cli
