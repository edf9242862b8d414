;;; listwright.el --- Insert step lists, built in a dialog  -*- lexical-binding: t; -*-

;; Author: The Listwright developers
;; Version: 2.0.0
;; Package-Requires: ((emacs "26.1"))
;; Keywords: convenience, wp
;; SPDX-License-Identifier: MIT

;;; Commentary:

;; `M-x listwright' opens a dialog that builds step lists: numbered, lettered, Roman, or with a
;; prefix and a suffix only.  The list that you insert there goes where point was, or in place of
;; the active region.  Emacs stays usable meanwhile.
;;
;; `M-x listwright-insert-step-file' inserts the list of a step file, which the dialog keeps,
;; without a window.
;;
;; `M-x listwright-number' puts labels before the lines of the region or the paragraph,
;; `M-x listwright-renumber' sets the labels of lists right after lines were moved,
;; `M-x listwright-unnumber' takes them away, and `M-x listwright-continue' goes on behind the last
;; label above point.
;;
;; All run the command `listwright'; see `listwright-command' if it is not on your path.

;;; Code:

(require 'seq)
(require 'subr-x)

(defgroup listwright nil
  "Step lists, built in a dialog."
  :group 'convenience
  :prefix "listwright-")

(defcustom listwright-command "listwright"
  "The command that opens the dialog: a name that is found on the path, or a file."
  :type 'string)

(defcustom listwright-step-folder nil
  "The folder of your step files and favourite texts.
If nil, the one that the command uses by itself."
  :type '(choice (const :tag "The command's own" nil) directory))

(defcustom listwright-indentation nil
  "Number of blanks in one indentation, 0 to 255.
If nil, what the major mode indents by, or `standard-indent' where that is
not known."
  :type '(choice (const :tag "As the major mode indents" nil) integer))

(defcustom listwright-dialog-options nil
  "List of further options for the dialog; `listwright --help' has them.
An example: (\"--type\" \"roman\" \"--menu-mode\").  A graphical frame passes on
its font by itself."
  :type '(repeat string))

(defvar listwright--dialog nil
  "The process of the dialog that was opened last.")

(defconst listwright--mode-indentations
  '((c-basic-offset c-mode c++-mode objc-mode java-mode)
    (c-ts-mode-indent-offset c-ts-base-mode)
    (python-indent-offset python-mode python-ts-mode)
    (sh-basic-offset sh-mode bash-ts-mode)
    (js-indent-level js-mode js-ts-mode)
    (css-indent-offset css-mode css-ts-mode)
    (ruby-indent-level ruby-mode ruby-ts-mode)
    (perl-indent-level perl-mode)
    (cperl-indent-level cperl-mode)
    (nxml-child-indent nxml-mode)
    (sgml-basic-offset sgml-mode))
  "Variables that tell how far major modes indent, and the modes.")

(defun listwright--indentation ()
  "Number of blanks in one indentation of the current buffer."
  (let* ((variable (seq-some (lambda (entry)
                               (and (apply #'derived-mode-p (cdr entry)) (car entry)))
                             listwright--mode-indentations))
         (of-mode (and variable (boundp variable) (symbol-value variable))))
    (max 0 (min 255 (or listwright-indentation
                        (and (natnump of-mode) of-mode)
                        standard-indent)))))

(defun listwright--folder ()
  "The folder of the step files."
  (let ((data (getenv "XDG_DATA_HOME")))
    (file-name-as-directory
     (cond (listwright-step-folder (expand-file-name listwright-step-folder))
           ((eq system-type 'windows-nt) (expand-file-name "Listwright" (getenv "APPDATA")))
           ((and data (string-prefix-p "/" data)) (expand-file-name "listwright" data))
           (t (expand-file-name "~/.local/share/listwright"))))))

(defun listwright--dialog-arguments ()
  "Arguments of the command that opens the dialog for the current buffer."
  (append (list "--indent" (number-to-string (listwright--indentation)))
          (and listwright-step-folder (list "--step-folder" (listwright--folder)))
          (and (display-graphic-p) (not (member "--font" listwright-dialog-options))
               (let ((points (round (face-attribute 'default :height) 10)))
                 (list "--font" (face-attribute 'default :family)
                       "--font-size" (number-to-string (max 1 (min points 200))))))
          listwright-dialog-options))

(defun listwright--command (arguments)
  "The command and its ARGUMENTS, ready to be run."
  (let ((command (executable-find listwright-command))
        ;; Emacs on Windows passes arguments in the system's code page, whatever files have.
        (coding (if (eq system-type 'windows-nt) locale-coding-system
                  (or file-name-coding-system default-file-name-coding-system 'utf-8))))
    (unless command
      (user-error "Cannot run `%s'; see the option `listwright-command'" listwright-command))
    (mapcar (lambda (argument) (encode-coding-string argument coding))
            (cons command arguments))))

(defun listwright--result (status output errors dialog)
  "What the command printed, nil if the user closed its DIALOG.
STATUS is how it ended, OUTPUT what it printed, ERRORS the file of its
messages.  Signal a `user-error' with these if it failed."
  (cond ((eql status 0) output)
        ((not (and dialog (eql status 1)))
         (let ((said (with-temp-buffer
                       (let ((coding-system-for-read 'utf-8))
                         (insert-file-contents errors))
                       (string-trim (buffer-string)))))
           (user-error "%s" (if (string-empty-p said)
                                (format "The command listwright ended with status %s" status)
                              said))))))

(defun listwright--run (arguments &optional input)
  "What the command prints when run with ARGUMENTS, or nil.
Without the text INPUT it may be a dialog that is closed.  Wait for it."
  (let ((command (listwright--command arguments))
        (errors (make-temp-file "listwright"))
        (default-directory temporary-file-directory)
        (coding-system-for-read 'utf-8-unix)
        (coding-system-for-write 'utf-8-unix))
    (unwind-protect
        (with-temp-buffer
          (let ((status (apply #'call-process-region (or input "") nil (car command) nil
                               (list t errors) nil (cdr command))))
            (listwright--result status (buffer-string) errors (not input))))
      (delete-file errors))))

(defun listwright--start (arguments insert)
  "Run the command with ARGUMENTS; pass the list that it prints to INSERT.
Return at once.  What fails later is shown in the echo area."
  (let ((command (listwright--command arguments))
        (errors (make-temp-file "listwright"))
        (default-directory temporary-file-directory))
    (setq listwright--dialog
          (make-process
           :name "listwright"
           :buffer (generate-new-buffer " *listwright*")
           ;; The shell keeps messages apart from the list; both are whole when the process ends.
           ;; On Windows, where there is no such shell, nothing but the command itself has messages.
           :command (if (eq system-type 'windows-nt) command
                      (append (list "sh" "-c" "exec \"$@\" 2>\"$0\"" errors) command))
           :connection-type 'pipe
           :coding 'utf-8-unix
           :sentinel
           (lambda (process _event)
             (unless (process-live-p process)
               (when (eq system-type 'windows-nt)
                 (with-current-buffer (process-buffer process)
                   (let ((coding-system-for-write 'utf-8-unix))
                     (write-region nil nil errors nil 'silent))))
               (unwind-protect
                   (condition-case failure
                       (let ((list (listwright--result
                                    (process-exit-status process)
                                    (with-current-buffer (process-buffer process)
                                      (buffer-string))
                                    errors t)))
                         (when list (funcall insert list)))
                     (error (message "%s" (error-message-string failure))))
                 (delete-file errors)
                 (kill-buffer (process-buffer process)))))))))

(defun listwright--indented (list start end)
  "LIST with all lines as far in as the one of START, which END may follow."
  (save-excursion
    (goto-char start)
    (forward-line 0)
    (skip-chars-forward " \t" start)
    (let ((depth (buffer-substring-no-properties (line-beginning-position) (point))))
      (goto-char (max start end))
      (concat (replace-regexp-in-string "\n\\([^\n]\\)" (concat "\n" depth "\\1") list)
              (and (string-suffix-p "\n" list) (not (eolp)) depth)))))

(defun listwright--replace (start end list)
  "Put LIST in place of the text between the markers START and END.
Point goes behind LIST, and the mark before it, where point was there."
  (undo-boundary)
  ;; Whole lines stay whole lines.
  (when (and (< start end) (eq (char-before end) ?\n) (not (string-suffix-p "\n" list)))
    (setq list (concat list "\n")))
  (setq list (listwright--indented list start end))
  (atomic-change-group
    ;; START lies behind END where text was typed at point meanwhile.
    (when (< start end) (delete-region start end))
    (let* ((from (marker-position start))
           (to (+ from (length list)))
           (here (= (point) from))
           (windows (seq-filter (lambda (window) (= (window-point window) from))
                                (get-buffer-window-list nil nil t))))
      (save-excursion
        (goto-char from)
        (insert list))
      (when here
        (push-mark from t)
        (deactivate-mark)
        (goto-char to))
      (dolist (window windows) (set-window-point window to))))
  (undo-boundary))

(defun listwright--inserter (start end)
  "Return a function for inserting a list at point, or from START to END.
It may be called later, whatever happens to the buffer in between; where
the list cannot go there any more, it stays in the kill ring."
  (barf-if-buffer-read-only)
  (let* ((start (copy-marker (or start (point)) t))
         (end (copy-marker (or end start))))
    (lambda (list)
      (setq list (replace-regexp-in-string "\r\n?" "\n" list))
      (unless (string-empty-p list)
        (condition-case failure
            (with-current-buffer (or (marker-buffer start) (error "The buffer is gone"))
              (barf-if-buffer-read-only)
              (listwright--replace start end list))
          (error
           (kill-new list)
           (user-error "%s; the list is in the kill ring" (error-message-string failure)))))
      (set-marker start nil)
      (set-marker end nil))))

(defun listwright--read-step-file (prompt)
  "Ask for a step file with PROMPT."
  (let ((folder (listwright--folder)))
    (read-file-name prompt (and (file-directory-p folder) folder) nil t nil
                    (lambda (name)
                      (or (string-suffix-p ".step" name t) (file-directory-p name))))))

(defun listwright--step-file-arguments (file)
  "Arguments of the command for lists of the step file FILE."
  (list "--indent" (number-to-string (listwright--indentation)) (expand-file-name file)))

(defun listwright--region ()
  "The active region as a list of its ends, or nil."
  (barf-if-buffer-read-only)
  (and (use-region-p) (list (region-beginning) (region-end))))

;;;###autoload
(defun listwright (&optional start end)
  "Build a step list in a dialog and insert it at point.
If the region is active, the list takes its place; from Lisp, that of the
text from START to END.  Emacs stays usable while the dialog is open; a
batch Emacs waits for it.  Closing the dialog without Insert changes nothing."
  (interactive (listwright--region))
  (when (process-live-p listwright--dialog)
    (user-error "The Listwright dialog is open already"))
  (let ((insert (listwright--inserter start end))
        (arguments (cons "--exact" (listwright--dialog-arguments))))
    (if (not noninteractive)
        (listwright--start arguments insert)
      (let ((list (listwright--run arguments)))
        (when list (funcall insert list))))))

;;;###autoload
(defun listwright-insert-step-file (file &optional start end)
  "Insert the list of the step file FILE at point, without a window.
If the region is active, the list takes its place; from Lisp, that of the
text from START to END."
  (interactive
   (let ((region (listwright--region)))
     (cons (listwright--read-step-file "Insert the list of step file: ") region)))
  (let ((insert (listwright--inserter start end)))
    (funcall insert
             (or (listwright--run (cons "--exact" (listwright--step-file-arguments file))) ""))))

(defun listwright--paragraph ()
  "The paragraph around point as a list of its ends, which are blank lines."
  (save-excursion
    (forward-line 0)
    (if (looking-at "[ \t]*$")
        (list (point) (point))
      (list (save-excursion
              (if (re-search-backward "^[ \t]*$" nil t) (line-beginning-position 2) (point-min)))
            (if (re-search-forward "^[ \t]*$" nil t) (match-beginning 0) (point-max))))))

(defun listwright--filter (arguments lines)
  "Run the command with ARGUMENTS over LINES; return the lines that it prints."
  (let ((text (listwright--run arguments (concat (string-join lines "\n") "\n"))))
    (split-string (string-remove-suffix "\n" text) "\n")))

(defun listwright--line (position)
  "Arguments of the command that name the line of POSITION."
  (list "--line" (number-to-string (line-number-at-pos position))))

(defun listwright--set-line (line)
  "Make the line at point LINE.  What ends alike stays, and markers in it."
  (let* ((old (buffer-substring-no-properties (point) (line-end-position)))
         (ends (list (length old) (length line))))
    (unless (equal old line)
      (while (and (> (apply #'min ends) 0)
                  (eq (aref old (1- (car ends))) (aref line (1- (cadr ends)))))
        (setq ends (mapcar #'1- ends)))
      (delete-region (point) (+ (point) (car ends)))
      (insert (substring line 0 (cadr ends))))))

(defun listwright--edit-lines (start end change &optional above)
  "Replace the lines from START to END by the result of CHANGE.
They are whole lines, all those ABOVE included if that is not nil, and
CHANGE is called with a list of them.  Point stays on its character."
  (barf-if-buffer-read-only)
  (let* ((behind (- (line-end-position) (point)))
         (end (save-excursion
                (goto-char end)
                (if (and (bolp) (> end start)) (1- end) (line-end-position))))
         (start (if above
                    (point-min)
                  (save-excursion (goto-char start) (line-beginning-position))))
         (old (split-string (buffer-substring-no-properties start end) "\n"))
         (new (funcall change old)))
    (when (equal old new) (user-error "Nothing to change here"))
    (atomic-change-group
      (if (/= (length old) (length new))
          (save-excursion
            (goto-char start)
            (delete-region start end)
            (insert (string-join new "\n")))
        (save-excursion
          (goto-char start)
          (dolist (line new)
            (listwright--set-line line)
            (forward-line)))
        (goto-char (max (line-beginning-position) (- (line-end-position) behind)))))))

;;;###autoload
(defun listwright-number (start end &optional file)
  "Put labels before the lines of the region or the paragraph.
Lines without text get none.  The labels are \"1. \" and so on; with a prefix
argument, those of a step file that you are asked for.  From Lisp, number the
lines from START to END with the labels of FILE."
  (interactive
   (append (or (listwright--region) (listwright--paragraph))
           (and current-prefix-arg
                (list (listwright--read-step-file "Number with the labels of step file: ")))))
  (let ((arguments (and file (listwright--step-file-arguments file))))
    (listwright--edit-lines start end (lambda (lines)
                                        (listwright--filter (cons "--number" arguments) lines)))))

(defun listwright--relabel (option start end)
  "Run the command with OPTION over the lines from START to END.
Without START change the lists around point."
  (let ((arguments (cons option (and (not start) (listwright--line (point))))))
    (listwright--edit-lines (or start (point-min)) (or end (point-max))
                            (lambda (lines) (listwright--filter arguments lines)))))

;;;###autoload
(defun listwright-renumber (&optional start end)
  "Set the labels of the lists in the region, or of those around point, right.
Lists in the region begin at 1.  From Lisp, those from START to END."
  (interactive (listwright--region))
  (listwright--relabel "--renumber" start end))

;;;###autoload
(defun listwright-unnumber (&optional start end)
  "Take the labels of the lists in the region, or of those around point, away.
From Lisp, of those from START to END."
  (interactive (listwright--region))
  (listwright--relabel "--unnumber" start end))

;;;###autoload
(defun listwright-continue (start end)
  "Put the label that follows the last one above before the current line.
If the region is active, put labels before its lines; from Lisp, before those
from START to END.  They are as far in as the label above.  One that is
further in than the line does not count, unless the line is empty."
  (interactive (or (listwright--region) (list (point) (point))))
  (let ((arguments (cons "--continue" (listwright--line start))))
    (listwright--edit-lines start end (lambda (lines) (listwright--filter arguments lines))
                            t)))

(provide 'listwright)

;;; listwright.el ends here
