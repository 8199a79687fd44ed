#!/usr/bin/env bash
# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
# completions_test.sh FOLDER QUODE: what bash, fish and zsh complete, and that the page and every completion name each command of the help.
set -euo pipefail
folder=$1
quode=$2
fail() {
    echo "$1" >&2
    exit 1
}

# shellcheck disable=SC1091
source "$folder/quode.bash"
completed() {
    COMP_WORDS=("$@")
    COMP_CWORD=$(($# - 1))
    _quode
    echo "${COMPREPLY[*]}"
}
[ "$(completed quode ci)" = city ] || fail "quode ci: $(completed quode ci)"
[ "$(completed quode city --json se)" = search ] || fail "an option before the word is not skipped"
[ "$(completed quode month --format "")" = "table csv json pdf html ics" ] || fail "the choices of --format are not offered"
[[ " $(completed quode next --) " = *" --format "* ]] || fail "the options of a command are not offered"
[[ " $(completed quode sky --) " != *" --format "* ]] || fail "an option of another command is offered"

[[ " $(completed quode today --city London --) " = *" --seconds "* ]] || fail "the value of an option hides the command"

if command -v fish >/dev/null; then
    offered() { fish --no-config -c "source '$folder/quode.fish'; complete -C '$1'" 2>&1 | cut -f 1 | tr '\n' ' '; }
    [ "$(offered 'quode ci')" = "city " ] || fail "fish, quode ci: $(offered 'quode ci')"
    [ "$(offered 'quode city --json se')" = "search " ] || fail "fish: $(offered 'quode city --json se')"
    [ "$(offered 'quode month --format p')" = "pdf " ] || fail "fish: $(offered 'quode month --format p')"
    [[ $(offered 'quode today --city London --') = *"--seconds "* ]] || fail "fish: the value of an option hides the command"
    [[ $(offered 'quode sky --') != *"--format "* ]] || fail "fish offers an option of another command"
fi
if command -v zsh >/dev/null; then
    shown=$(zsh -f "$(dirname "${BASH_SOURCE[0]}")/zsh_completes" "$folder" 'quode today --city London --se' 'quode city --json se' \
        'quode month --format p' 'quode ') || fail "$shown"
    for text in "--seconds" "search" "--format pdf" "The direction of the Kaaba"; do
        [[ $shown = *"$text"* ]] || fail "zsh does not complete $text: $shown"
    done
fi

commands=$("$quode" --help | sed -n '/^Commands:/,/^$/s/^  \([a-z]*\) .*/\1/p')
[ "$(wc -w <<<"$commands")" -gt 10 ] || fail "the help lists no commands"
for command in $commands; do
    for file in quode.1 quode.bash _quode quode.fish; do
        grep -q "\b$command\b" "$folder/$file" || fail "$file does not know $command"
    done
done
if command -v man >/dev/null; then
    warnings=$(LC_ALL=C.UTF-8 MANROFFSEQ='' man --warnings -E UTF-8 -l -Tutf8 "$folder/quode.1" 2>&1 >/dev/null)
    [ -z "$warnings" ] || fail "$warnings"
fi
