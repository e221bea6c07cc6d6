# Completion of ./brim in bash: source this file.
_brim() {
  local word=${COMP_WORDS[COMP_CWORD]}
  mapfile -t COMPREPLY < <(compgen -W "$("${COMP_WORDS[0]}" candidates "${COMP_WORDS[@]:1:COMP_CWORD-1}" 2>/dev/null)" -- "$word")
}
complete -o default -F _brim ./brim brim
