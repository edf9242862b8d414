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
;; Both run the command `listwright'; see `listwright-command' if it is not on your path.

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
        (coding (or file-name-coding-system default-file-name-coding-system 'utf-8)))
    (unless command
      (user-error "Cannot run `%s'; see the option `listwright-command'" listwright-command))
    (mapcar (lambda (argument) (encode-coding-string argument coding))
            (append (list command "--exact") arguments))))

(defun listwright--result (status output errors)
  "The list that the command printed, nil if it was told to insert none.
STATUS is how it ended, OUTPUT what it printed, ERRORS the file of its
messages.  Signal a `user-error' with these if it failed."
  (cond ((eql status 0) (replace-regexp-in-string "\r\n?" "\n" output))
        ((not (eql status 1))
         (let ((said (with-temp-buffer
                       (let ((coding-system-for-read 'utf-8))
                         (insert-file-contents errors))
                       (string-trim (buffer-string)))))
           (user-error "%s" (if (string-empty-p said)
                                (format "The command listwright ended with status %s" status)
                              said))))))

(defun listwright--run (arguments)
  "The list that the command prints when run with ARGUMENTS, or nil.
Wait for it."
  (let ((command (listwright--command arguments))
        (errors (make-temp-file "listwright"))
        (default-directory temporary-file-directory)
        (coding-system-for-read 'utf-8-unix))
    (unwind-protect
        (with-temp-buffer
          (let ((status (apply #'call-process (car command) nil (list t errors) nil
                               (cdr command))))
            (listwright--result status (buffer-string) errors)))
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
           :command (append (list "sh" "-c" "exec \"$@\" 2>\"$0\"" errors) command)
           :connection-type 'pipe
           :coding 'utf-8-unix
           :sentinel
           (lambda (process _event)
             (unless (process-live-p process)
               (unwind-protect
                   (condition-case failure
                       (let ((list (listwright--result
                                    (process-exit-status process)
                                    (with-current-buffer (process-buffer process)
                                      (buffer-string))
                                    errors)))
                         (when list (funcall insert list)))
                     (error (message "%s" (error-message-string failure))))
                 (delete-file errors)
                 (kill-buffer (process-buffer process)))))))))

(defun listwright--replace (start end list)
  "Put LIST in place of the text between the markers START and END.
Point goes behind LIST, and the mark before it, where point was there."
  (undo-boundary)
  ;; Whole lines stay whole lines.
  (when (and (< start end) (eq (char-before end) ?\n) (not (string-suffix-p "\n" list)))
    (setq list (concat list "\n")))
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
        (arguments (listwright--dialog-arguments)))
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
   (let ((region (listwright--region))
         (folder (listwright--folder)))
     (cons (read-file-name "Insert the list of step file: "
                           (and (file-directory-p folder) folder) nil t nil
                           (lambda (name)
                             (or (string-suffix-p ".step" name t) (file-directory-p name))))
           region)))
  (let ((insert (listwright--inserter start end)))
    (funcall insert
             (or (listwright--run (list "--indent" (number-to-string (listwright--indentation))
                                        (expand-file-name file)))
                 ""))))

(provide 'listwright)

;;; listwright.el ends here
