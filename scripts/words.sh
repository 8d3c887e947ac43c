#!/usr/bin/env bash
# Fails for words in code and documents that a new engineer would have to learn first. Beside each stands what is
# said instead.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

found=0
forbid() { # Perl regular expression, case as written; what to say instead
    local lines
    lines=$(git grep -nP "$1" -- '*.cpp' '*.h' '*.md' '*.cmake' '*.txt' '*.sh' '*.sql' ':!scripts/words.sh') ||
        [ $? -eq 1 ] # no such line
    [ -z "$lines" ] && return
    found=1
    printf '%s\n    say instead: %s\n' "$lines" "$2"
}

forbid '\b([Rr]ooms?|[Hh]ouses?|(?<!std::)[Ff]loors?)\b' "module, layer; space"
# Allowed: the arrow keys.
forbid '\b[Aa]rrows?\b(?! keys?\b)' "dependency; arrow-key names (Up, Down), up, down"
# Allowed: a street in the text of an address.
forbid '\b((?<!"Harbour )[Rr]oads?|[Ww]alk(s|ed|ing)?)\b' "data flow, call path; moves, visits"
forbid '\b[Dd]oors?\b' "entry point, interface, seam"
forbid '\b([Tt]ake|[Tt]akes|[Tt]aken|[Tt]ook) back\b|\bwhat ran\b' "commit group, transaction, roll back"
forbid '\b([Ll]anded|[Ss]tands?|[Ss]tood)\b' "implemented; is, remains"
forbid '\bstops\b|\bstop (of|for|at)\b|\bnext stop\b|StopAt' "tab order; ends"
forbid '\b([Tt]ells?|[Tt]old|[Tt]elling|Tell[A-Z][A-Za-z]*)\b' "emits, reports, says, as required"
forbid '\b[Hh]as (always|never)\b|[Aa]s it always was' "kept on purpose, and what the operator sees"
forbid "operator's hands" "what the operator does"
forbid '(//|///) .*\b[Aa] box\b' "a text box, a message box, a combo"

[ $found -eq 0 ] && say "Words: nothing to reword."
exit $found
