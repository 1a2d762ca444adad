// SPDX-License-Identifier: MIT
// Each script hands the words before the cursor to the program, the one being typed last and behind
// a "=" since some shells drop empty words, and reads what to offer: a line that says whether to
// offer files or folders too, then words, each with a tab and what is said of it. No word of the
// command line or of the answer is ever evaluated.
#include "cli/Commands.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace Tarnex::Cli {

namespace {

// Bash takes words apart at ":" and "=", and replaces only what stands behind these. It quotes what
// it inserts only if that is a file's name, but then ends what a folder is called with "/".
constexpr const char* kBash = R"script(# Completion of vaultry for bash.
_vaultry() {
  local words=() part word='' joined='' line kind program=${COMP_WORDS[0]}
  [[ $program != '~/'* ]] || program=$HOME/${program#'~/'}
  for part in "${COMP_WORDS[@]:1:COMP_CWORD}"; do
    word=$part
    case $word in
    \"*) word=${word#\"} word=${word%\"} ;;
    \'*) word=${word#\'} word=${word%\'} ;;
    *) word=${word//\\/} ;;
    esac
    if [[ ($part == [:=] || -n $joined) && ${#words[@]} -gt 0 ]]; then
      words[-1]+=$word
    else
      words+=("$word")
    fi
    joined=''
    [[ $part != [:=] ]] || joined=1
  done
  [[ $part != [:=] ]] || word=''
  local typed=${words[-1]} start
  start=${typed%"$word"}
  COMPREPLY=()
  {
    read -r kind
    while IFS=$'\t' read -r line _; do
      COMPREPLY+=("${line#"$start"}")
    done
  } < <("$program" __complete "${words[@]::${#words[@]}-1}" "=$typed" 2>/dev/null)
  case $kind in
  files) mapfile -t -O ${#COMPREPLY[@]} COMPREPLY < <(compgen -f -- "$word") ;;
  folders) mapfile -t -O ${#COMPREPLY[@]} COMPREPLY < <(compgen -d -- "$word") ;;
  none)
    if [[ ${#COMPREPLY[@]} == 1 && -d ${COMPREPLY[0]} ]]; then
      compopt +o filenames
      [[ $part == [\"\']* ]] || printf -v 'COMPREPLY[0]' %q "${COMPREPLY[0]}"
    fi
    ;;
  esac
}
complete -o filenames -F _vaultry vaultry
)script";

constexpr const char* kZsh = R"script(#compdef vaultry
# Completion of vaultry for zsh.
_vaultry() {
  local -a answer described
  local line typed="${${(Q)words[CURRENT]}#[\"\']}"
  answer=("${(@f)$("${(Q)words[1]}" __complete "${(@Q)words[2,CURRENT-1]}" "=$typed" 2>/dev/null)}")
  for line in "${(@)answer[2,-1]}"; do
    described+=("${${line%%$'\t'*}//:/\\:}:${line#*$'\t'}")
  done
  if (( $#described )); then
    _describe -t words word described -M 'm:{[:lower:][:upper:]}={[:upper:][:lower:]}'
  fi
  [[ $typed != --*=* ]] || compset -P '*='
  case ${answer[1]} in
    files) _files ;;
    folders) _files -/ ;;
  esac
}
if [[ $funcstack[1] == _vaultry ]]; then
  _vaultry "$@"
else
  compdef _vaultry vaultry
fi
)script";

constexpr const char* kFish = R"script(# Completion of vaultry for fish.
function __vaultry_complete
    set -l words (commandline -opc)
    set -l typed (string trim --left --chars '"\'' -- (commandline -ct))
    set -l answer (command $words[1] __complete $words[2..-1] "=$typed" 2>/dev/null)
    set -l kind $answer[1]
    set -e answer[1]
    for line in $answer
        echo $line
    end
    switch "$kind"
        case files
            __fish_complete_path "$typed"
        case folders
            __fish_complete_directories "$typed"
    end
end
complete -c vaultry -f -a '(__vaultry_complete)'
)script";

// A word in apostrophes ends at curved ones too; any of them twice stands for itself. Between
// quotation marks more would have to be escaped, the curved ones among it.
constexpr const char* kPowerShell = R"script(# Completion of vaultry for PowerShell.
Register-ArgumentCompleter -Native -CommandName vaultry, vaultry.exe -ScriptBlock {
    param($typed, $ast, $cursor)
    $words = @($ast.CommandElements |
        Where-Object { $_.Extent.EndOffset -lt $cursor } |
        ForEach-Object { if ($null -ne $_.Value) { "$($_.Value)" } else { "$_".Trim('"', "'") } })
    $program = $words[0]
    $before = @($words | Select-Object -Skip 1)
    $typed = $typed.Trim('"', "'")
    $encoding = [Console]::OutputEncoding
    try {
        [Console]::OutputEncoding = [Text.Encoding]::UTF8
        $answer = @(& $program __complete @before "=$typed" 2>$null)
    } finally {
        [Console]::OutputEncoding = $encoding
    }
    $answer | Select-Object -Skip 1 | ForEach-Object {
        $word, $text = $_ -split "`t", 2
        if (-not $text) { $text = $word }
        $shown = $word
        if ($word -match '[^-\w.,:=/+]') {
            $shown = "'" + ($word -replace '([''\u2018-\u201B])', '$1$1') + "'"
        }
        [Management.Automation.CompletionResult]::new($shown, $word, 'ParameterValue', $text)
    }
    if ($answer[0] -ne 'none') {
        [Management.Automation.CompletionCompleters]::CompleteFilename($typed)
    }
}
)script";

struct Shell {
    std::string_view name;
    const char* script;
};

constexpr std::array<Shell, 4> kShells = {
    {{"bash", kBash}, {"zsh", kZsh}, {"fish", kFish}, {"powershell", kPowerShell}}};

} // namespace

ExitStatus RunVerb(const CompletionOptions& options, const Console& console) {
    const auto shell = std::ranges::find_if(
        kShells, [&options](const Shell& row) { return EqualsNoCase(row.name, options.shell); });
    if (shell == kShells.end()) {
        std::vector<std::string> names;
        names.reserve(kShells.size());
        for (const Shell& row : kShells) {
            names.emplace_back(row.name);
        }
        throw UsageError("completion: \"" + options.shell + "\" is none of " + JoinWords(names));
    }
    console.out << shell->script;
    return ExitStatus::Success;
}

} // namespace Tarnex::Cli
