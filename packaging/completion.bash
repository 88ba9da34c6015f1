# SPDX-FileCopyrightText: 2026 the Nordika authors
# SPDX-License-Identifier: MIT
#
# What bash completes for nordika-solve and nordika-plot. Expressions and numbers have no
# completion.

_nordika_files() {
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen -f -- "$1")
}

_nordika_solve() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
  [ "$word" != = ] || word=
  [ "$before" != = ] || before=${COMP_WORDS[COMP_CWORD - 2]}
  COMPREPLY=()
  case $before in
    --method) mapfile -t COMPREPLY < <(compgen -W 'simple newton' -- "$word") ;;
    --config | --log) _nordika_files "$word" ;;
    *)
      [[ $word != -* ]] || mapfile -t COMPREPLY < <(
        compgen -W "$("$1" --help 2>/dev/null | grep -o '^ *-[-a-z,]*' | tr ',' '\n' | tr -d ' ')" -- "$word")
      ;;
  esac
}

_nordika_plot() {
  local word=${COMP_WORDS[COMP_CWORD]}
  COMPREPLY=()
  case ${COMP_WORDS[COMP_CWORD - 1]} in
    --run | --eps) ;;
    -o) _nordika_files "$word" ;;
    *)
      [[ $word == -* ]] || _nordika_files "$word"
      [[ $word != -* ]] || mapfile -t COMPREPLY < <(compgen -W '-o --run --eps --help --version' -- "$word")
      ;;
  esac
}

complete -F _nordika_solve nordika-solve
complete -F _nordika_plot nordika-plot
