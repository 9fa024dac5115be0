# bash completion for unitctl. The program itself knows the candidates, names of the settings file included.
_unitctl() {
  local -a words=()
  local i word glue= open= candidate
  # bash splits at "="; put NAME=on and --option=value together again, and take quotes and backslashes off.
  for ((i = 1; i <= COMP_CWORD; i++)); do
    word=${COMP_WORDS[i]}
    open=
    case $word in
      \"*) open=\" word=${word:1}; [[ $word == *\" ]] && word=${word%\"} ;;
      \'*) open=\' word=${word:1}; [[ $word == *\' ]] && word=${word%\'} ;;
      *) word=${word//\\/} ;;
    esac
    if [[ ${#words[@]} -gt 0 && ( $glue || $word == '=' ) ]]; then
      words[${#words[@]}-1]+=$word
    else
      words+=("$word")
    fi
    glue=
    [[ $word == '=' && ${#words[@]} -gt 0 ]] && glue=1
  done
  COMPREPLY=()
  local cut=
  [[ ${words[${#words[@]}-1]} == *=* ]] && cut=${words[${#words[@]}-1]%%=*}=
  while IFS= read -r candidate; do
    if [[ $candidate == :files ]]; then
      compopt -o default 2>/dev/null
      return
    fi
    candidate=${candidate#"$cut"} # bash has the part before "=" already
    case $open in
      \") candidate=${candidate//\\/\\\\}; candidate=${candidate//\"/\\\"} ;;
      \') candidate=${candidate//\'/\'\\\'\'} ;;
      *) printf -v candidate %q "$candidate" ;;
    esac
    COMPREPLY+=("$candidate")
  done < <("${COMP_WORDS[0]}" complete -- "${words[@]}" 2>/dev/null)
}
complete -F _unitctl unitctl
