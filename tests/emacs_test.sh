#!/bin/bash
# The Emacs package in the real Emacs: emacs_test.sh LISTWRIGHT SOURCE — skipped (77) without Emacs.
# shellcheck disable=SC1112,SC2016,SC2154 # real quotes; nothing to expand; variables of the cases
set -u
source "$(dirname "$0")/editor_cases.bash"
need emacs
batch() { run emacs --batch -Q "$@"; }
edit() {
  printf '%s\n' '(with-current-buffer (find-file-noselect "text") (condition-case failure (progn' \
    "$@" ') (user-error (message "%s" (cadr failure))))' \
    '(setq buffer-read-only nil) (let ((inhibit-message t)) (save-buffer)))' >forms.el
  batch -L "$source/hosts/emacs" -l listwright -l forms.el >said 2>&1
}
args='(setq listwright-command "~/bin/args")'
# The dialog's call returns at once unless Emacs is a batch.
open='(let ((noninteractive nil)) (listwright))'
await='(while (buffer-live-p (process-buffer listwright--dialog)) (accept-process-output nil 0.02))'

check 'at point' 'one\n' 'on^Dear é:\n    1.\n    2.|e\n' '' '(goto-char 3)' \
  "(listwright-insert-step-file \"$long\")" '(insert "|") (goto-char (mark t)) (insert "^")'
check 'a marked line, taken back' 'a\r\nb\r\nc\r\n' 'a\r\n1)\r\n2)\r\nc\r\na\r\nb\r\nc\r\n' '' \
  '(transient-mark-mode) (buffer-enable-undo) (forward-line) (push-mark nil t t) (forward-line)' \
  '(let ((read-file-name-function (lambda (_ folder &rest _) (concat folder "short.step"))))' \
  '(call-interactively (quote listwright-insert-step-file)))' \
  '(let ((list (buffer-string))) (primitive-undo 1 (cdr buffer-undo-list))' \
  '(goto-char 1) (insert list))'
LC_ALL=C
check 'indentation' '' '--exact\n--indent\n3\n--exact\n--indent\n255\n--step-folder\n/é/\n' '' "$args" \
  '(setq python-indent-guess-indent-offset nil) (python-mode) (setq python-indent-offset 3)' \
  '(listwright) (setq listwright-indentation 300 listwright-step-folder "/\303\251")' '(listwright)'
LC_ALL=C.UTF-8

check 'typing meanwhile' 'ab\n' 'y|ax--exact\n--indent\n4\né\nb\n' '' "$args" \
  '(setq listwright-dialog-options (list "é")) (goto-char 2)' "$open" \
  '(insert "x") (goto-char 1) (insert "y")' "$await" '(insert "|")'
check 'killed meanwhile' 'a\n' '--exact\n--indent\n4\na\n' 'The buffer is gone; the list is in the kill ring' \
  "$args" '(with-temp-buffer' "$open" ')' "$await" '(insert (current-kill 0))'

check 'at the depth of the line' '\t ab\n' '\t a1)\n\t 2)b\n' '' '(goto-char 4)' \
  '(listwright-insert-step-file "~/data/listwright/short.step")'

# (once COMMAND) does it, takes it back at once, does it again.
once='(buffer-enable-undo) (defun once (command) (undo-boundary) (let ((text (buffer-string)))
  (call-interactively command) (undo-boundary) (let ((new (buffer-string)) (here (point)))
  (primitive-undo 1 (cdr buffer-undo-list)) (unless (equal (buffer-string) text) (insert "kept"))
  (erase-buffer) (insert new) (goto-char here))))'
check 'numbered, moved, set right, taken away' 'At:\n\nx\n y\nz\n\nBe\n' \
  'At:\n\nz\nx\n y!?:\n\nBe\n1. z\n2. x\n 1. y!?\n' '' "$once" '(search-forward "y")' \
  "(once 'listwright-number)" '(insert "!") (search-forward "z") (kill-whole-line)' \
  '(goto-char 6) (insert (current-kill 0)) (search-forward "!")' "(once 'listwright-renumber)" \
  '(insert "?") (setq seen (buffer-substring 6 (line-beginning-position 2)))' \
  "(once 'listwright-unnumber)" '(insert ":") (goto-char (point-max)) (insert seen)'
check 'the lines of a region' '1. a\n2. b\n\n7. c\n9. d' '1. a\n2. b\n\nDear é:\n    1.1. c\n    2.2. d' '' \
  '(listwright-renumber 12 18)' "(listwright-number 12 18 \"$long\")"
check 'going on' 'h) a\ni) b\n   9. c\n\n\nd\ne\n' 'h) a\ni) b\n   9. c\n   10. x\n\nj) d\nk) e\n' '' \
  '(listwright-continue 21 25) (goto-char 19)' "(call-interactively 'listwright-continue)" '(insert "x")'
check 'only where there is something' 'a\n' 'a\n' 'nothing none' \
  '(condition-case nil (listwright-renumber) (user-error (message "nothing")))' \
  '(condition-case nil (listwright-continue 1 2) (user-error (message "none")))'

STATUS=1
check 'the dialog is closed, no such label' 'a\n' 'a\n' '1st 2nd' "$args" '(listwright 1 3)' '(listwright-number 1 3)'
STATUS=3
check 'the command fails' 'a\n' 'a\n' '1st 2nd 1st 2nd' "$args" "$open" "$await" '(listwright 1 3)'
check 'no command' 'a\n' 'a\n' 'Cannot run ‘none’; see the option ‘listwright-command’' \
  '(setq listwright-command "none")' '(listwright)'
check 'a read-only buffer' 'a\n' 'a\n' 'no' '(setq buffer-read-only t)' \
  "(condition-case nil $open (buffer-read-only (message \"no\")))"

cp "$source/hosts/emacs/listwright.el" .
batch --eval '(setq byte-compile-error-on-warn t)' -f batch-byte-compile listwright.el || failed=1
batch --eval '(checkdoc-file "listwright.el")' >log 2>&1
[ ! -s log ] || { cat log; failed=1; }

key=alt+i
check 'the real dialog' 'a\n' 'once     1. \n    2. \n    3. \na\n' '' "$open" \
  "(condition-case nil $open (user-error (insert \"once \")))" "$await"
exit "$failed"
