#!/bin/bash
# The Vim plug-in in the real editor: vim_test.sh LISTWRIGHT SOURCE [nvim] — skipped (77) without it.
# shellcheck disable=SC2016,SC2154 # nothing to expand in single quotes; variables of the cases
set -u
source "$(dirname "$0")/editor_cases.bash"
vim=(vim -N)
[ "$#" -lt 3 ] || vim=(nvim)
need "${vim[0]}"
encoding=utf-8
edit() {
  printf '%s\n' "$@" 'redir! > said' 'messages' 'redir END' 'silent wq!' >script.vim
  run "${vim[@]}" -u NONE -i NONE -es \
    --cmd "set shell=/nowhere encoding=$encoding shortmess+=F rtp^=$source/hosts/vim" \
    -c 'runtime plugin/listwright.vim' -S script.vim text
}
args='let g:listwright_command = "~/bin/args"'

check 'at the cursor' 'one\nab\n' 'one\naDear é:!\n  1.\n  2.?b\n' '' \
  'set sw=2' 'normal! 2G$' "Listwright $long" 'normal! ma`]a?' 'normal! `aa!'
check 'in Insert mode, from the step folder' 'ab\n' 'abx1)\n2)y\n' '' \
  'execute "normal! Ax\<Cmd>Listwright short.step\<CR>y"'
check 'below a line' 'a\n' '--exact\n--indent\n8\na\n1)\n2)\n' '' "$args" '0Listwright' \
  'let g:listwright_command = "listwright"' '$Listwright short'
check 'in place of lines' 'a\r\nb\r\nc\r\nd\r\n' 'a\r\n1)\r\n2)\r\n        2.\r\n' '' \
  "4,4Listwright ~/$long" '2,5Listwright short.step'
check 'taken back at once' 'a\nb\n' 'a\nb\n' '' "%Listwright $long" 'silent normal! u'
[ "${vim[0]}" = nvim ] || encoding=latin1
check 'a readonly text' 'a\n' 'a\n1)\n2)\n' 'W10: Warning: Changing a readonly file' \
  'set readonly' '.Listwright short.step' 'set noreadonly'
check 'in another encoding' 'a\n' 'Dear \351:\n        1.\n        2.\n' '' \
  'set fileencoding=latin1' "%Listwright $long"
encoding=utf-8
check 'the dialog is told' 'a\n' '--exact\n--indent\n255\n--type\nroman\n' '' "$args" 'set sw=300' \
  'let g:listwright_options = ["--type", "roman"]' '%Listwright'
cp -r "$source/hosts/vim/doc" .
check 'completion, help' 'a\n' '50%% é.step\nshort.step\n' '' 'helptags doc' \
  'let names = getcompletion("1,2Listwright my {STEP_#} | 5", "cmdline")' \
  'call setline(1, names + getcompletion("ListwrightNumber! s", "cmdline"))'
check 'at the depth of the line' '\t ab\n' '\t a1)\n\t 2)b\n' '' 'normal! $' \
  'Listwright short'

# Once(command): does it, takes it back at once, does it again; the cursor is where it was put.
once='function! Once(command)
let [&undolevels, text] = [&undolevels, getline(1, "$")]
execute a:command
let cursor = getcurpos()
silent undo
call assert_equal(text, getline(1, "$"))
silent redo
call setpos(".", cursor)
endfunction'
check 'numbered, moved, set right, taken away' 'At:\n\nx\n y\nz\n\nBe\n' \
  'At:\n\nz\nx\n y!?:\n\nBe\n1. z\n2. x\n 1. y!?\n' '' "$once" 'normal! 4G$' \
  'call Once("ListwrightNumber")' 'normal! a!' '5move 2' 'normal! 5G$' \
  'call Once("ListwrightRenumber")' 'normal! a?' 'let seen = getline(3, 5)' \
  'call Once("ListwrightUnnumber")' 'normal! a:' 'call append("$", seen + v:errors)'
check 'the lines of a range' '1. a\n2. b\n\n7. c\n9. d\r\n' '1. a\n2. b\n\nDear é:\n  1.c\n  2.d\r\n' '' \
  'set sw=2' '4,$ListwrightRenumber' "4,\$ListwrightNumber! ~/$long"
check 'going on' 'h) a\ni) b\n   9. c\n\n\nd\ne\n' 'h) a\ni) b\n   9. c\n   10. x\n\nj) d\nk) e\n' '' \
  '6,7ListwrightContinue' 'execute "normal! 4GA\<Cmd>ListwrightContinue\<CR>x"'
check 'only where there is something' 'a\n\n' 'a\n\n' 'listwright: nothing to change here listwright: there is no label above' \
  '2ListwrightNumber' 'ListwrightContinue'

STATUS=1
check 'the dialog is closed, no such label' 'a\n' 'a\n' 'listwright: 1st 2nd' "$args" '%Listwright' \
  '%ListwrightNumber'
STATUS=3
check 'the command fails' 'a\n' 'a\n' 'listwright: 1st 2nd' "$args" '%Listwright'
check 'no command' 'a\n' 'a\n' 'listwright: cannot run "none", see :help g:listwright_command' \
  'let g:listwright_command = "none"' 'Listwright'
check 'an unmodifiable text' 'a\n' 'a\n' "E21: Cannot make changes, 'modifiable' is off" \
  'set nomodifiable' 'Listwright' 'set modifiable'

key=alt+i
check 'the real dialog' 'a\n' '   1. \n   2. \n   3. \n' '' 'set sw=3' '%Listwright'
exit "$failed"
