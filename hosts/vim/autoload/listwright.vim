" Runs the listwright command and puts the list, or the lines, that it prints into the buffer.

let s:cpo = &cpo
set cpo&vim

" Inserts the list of {file}, or what the user builds in the dialog where {file} is empty: at the
" cursor without an address, below line {last} with one, in place of {first} to {last} with two.
function! listwright#Insert(addresses, first, last, file) abort
  call s:Edit(function('s:List', [a:file]), {list -> s:Put(list, a:addresses, a:first, a:last)})
endfunction

" Puts labels before the lines from {first} to {last}, or those of the paragraph where there are no
" {addresses}: the labels of the step file {file}, or else "1. " and so on. With {again} the labels
" that are there go first.
function! listwright#Number(addresses, first, last, again, file) abort
  let [first, last] = a:addresses > 0 ? [a:first, a:last] : s:Paragraph()
  call s:EditLines(function('s:Numbered', [a:again, a:file]), first, last)
endfunction

" Sets the labels from {first} to {last} right, or takes them away, as {option} says; without
" {addresses} those of the lists around the cursor.
function! listwright#Relabel(option, addresses, first, last) abort
  if a:addresses > 0
    call s:EditLines(function('s:Filter', [[a:option]]), a:first, a:last)
  else
    call s:EditLines(function('s:Filter', [[a:option, '--line', line('.')]]), 1, line('$'))
  endif
endfunction

" Puts labels before the lines from {first} to {last} that go on behind the last one above.
function! listwright#Continue(first, last) abort
  call s:EditLines(function('s:Filter', [['--continue', '--line', a:first]]), 1, a:last)
endfunction

" Has {Put} put the lines that {Made} makes into the buffer, or says why not.
function! s:Edit(Made, Put) abort
  if !&modifiable
    return s:Say('ErrorMsg', ["E21: Cannot make changes, 'modifiable' is off"])
  endif
  let buffer = bufnr('%')
  try
    let lines = a:Made()
    if bufnr('%') != buffer
      throw "listwright: another buffer has taken this one's place"
    endif
    if !empty(lines)
      " Vim's warning about a 'readonly' buffer would name our functions.
      let v:warningmsg = ''
      silent call a:Put(lines)
      call s:Say('WarningMsg', split(v:warningmsg, '\n'))
    endif
  catch /^listwright: /
    call s:Say('ErrorMsg', split(v:exception, '\n'))
  catch /^Vim\%((\a\+)\)\=:E/
    call s:Say('ErrorMsg', [substitute(v:exception, '^Vim\%((\a\+)\)\=:', '', '')])
  endtry
endfunction

" Puts what {Changed} makes of the lines from {first} to {last} in their place. The cursor stays on
" its character.
function! s:EditLines(Changed, first, last) abort
  let [number, total] = [line('.'), line('$')]
  let behind = len(getline('.')) - col('.')
  call s:Edit({-> a:Changed(getline(a:first, a:last))}, {lines -> s:SetLines(lines, a:first, a:last)})
  if line('$') == total
    call cursor(number, max([len(getline(number)) - behind, 1]))
  endif
endfunction

" Puts {lines} in place of those from {first} to {last}, but for those at both ends that stay.
function! s:SetLines(lines, first, last) abort
  let [lines, first, last] = [copy(a:lines), a:first, a:last]
  if lines ==# getline(first, last)
    throw 'listwright: nothing to change here'
  endif
  while first < last && len(lines) > 1 && lines[0] ==# getline(first)
    call remove(lines, 0)
    let first += 1
  endwhile
  while first < last && len(lines) > 1 && lines[-1] ==# getline(last)
    call remove(lines, -1)
    let last -= 1
  endwhile
  " An empty line would be taken for the end of the one before.
  call s:Put(lines + [''], 2, first, last)
endfunction

" Step files that begin with what is typed, in the folder that is typed; for a bare name also those
" in the step folder. {lead} is only the typed text's last word.
function! listwright#Complete(lead, line, position) abort
  let before = strpart(a:line, 0, a:position)
  let typed = s:Unescaped(matchstr(before, '\CL\a*!\=\s\+\zs.*'))
  let folder = matchstr(typed, has('win32') ? '.*[/\\]' : '.*/')
  let found = s:StepFilesIn(folder ==# '' ? '.' : fnamemodify(folder, ':p'))
  if folder ==# ''
    let found += filter(s:StepFilesIn(s:StepFolder()), 'v:val !~# "/$"')
  endif
  call filter(map(found, 'folder . v:val'), 'strpart(v:val, 0, len(typed)) ==# typed')
  let words = len(typed) - len(s:Unescaped(a:lead))
  return map(uniq(sort(found)), 'strpart(v:val, words)')
endfunction

function! s:StepFilesIn(folder) abort
  let names = []
  silent! let names = readdir(a:folder)
  call map(names, 'isdirectory(a:folder . "/" . v:val) ? v:val . "/" : v:val')
  return filter(names, 'v:val =~? "\\.step$" || v:val =~# "^[^.].*/$"')
endfunction

" Blanks in a file name may stand as they are, or behind a backslash as with :edit.
function! s:Unescaped(name) abort
  return substitute(a:name, '\\ ', ' ', 'g')
endfunction

" The command looks for the file, in the step folder too. Only a leading ~ is special, because
" names of step files may hold # and {.
function! s:StepFile(name) abort
  let name = s:Unescaped(trim(a:name))
  return s:FolderOption() + ['--', name =~# '^\~' ? fnamemodify(name, ':p') : name]
endfunction

" The folder that the dialog uses.
function! s:StepFolder() abort
  if get(g:, 'listwright_step_folder', '') !=# ''
    return fnamemodify(g:listwright_step_folder, ':p')
  endif
  if has('win32')
    return $APPDATA . '/Listwright'
  endif
  return ($XDG_DATA_HOME =~# '^/' ? $XDG_DATA_HOME : $HOME . '/.local/share') . '/listwright'
endfunction

function! s:FolderOption() abort
  return get(g:, 'listwright_step_folder', '') ==# '' ? [] : ['--step-folder', s:StepFolder()]
endfunction

function! s:DialogOptions() abort
  let options = get(g:, 'listwright_options', []) + s:FolderOption()
  " A terminal has no font to tell; a GUI's is "Name 11" or "Name:h11".
  let font = has('gui_running') ? matchlist(&guifont, '^\([^,:]\{-1,}\)\%( \|:h\)\(\d\+\)') : []
  if !empty(font) && index(options, '--font') < 0
    let options += ['--font', font[1], '--font-size', font[2]]
  endif
  return options
endfunction

" The paragraph around the cursor: its lines, up to lines without text.
function! s:Paragraph() abort
  if getline('.') !~# '\S'
    return [line('.'), line('.')]
  endif
  let behind = search('^\s*$', 'nW')
  return [search('^\s*$', 'bnW') + 1, behind > 0 ? behind - 1 : line('$')]
endfunction

" The {lines} with labels.
function! s:Numbered(again, file, lines) abort
  let options = a:file ==# '' ? [] : s:Indent() + s:StepFile(a:file)
  return s:Filter(['--number'] + options, a:again ? s:Filter(['--unnumber'], a:lines) : a:lines)
endfunction

" What the command makes of the {lines}.
function! s:Filter(options, lines) abort
  let input = tempname()
  try
    call writefile(map(copy(a:lines), 'iconv(v:val, &encoding, "utf-8")'), input)
    let lines = s:Run(a:options, input)
  finally
    call delete(input)
  endtry
  " The text ends with a line break.
  return map(lines[: -2], 'iconv(v:val, "utf-8", &encoding)')
endfunction

" The lines of the list that a step file or the dialog makes, the last one empty where the list ends
" with a line break; none when the dialog was closed without Insert.
function! s:List(file) abort
  let options = s:Indent() + (a:file ==# '' ? s:DialogOptions() : s:StepFile(a:file))
  let text = iconv(join(s:Run(['--exact'] + options, ''), "\n"), 'utf-8', &encoding)
  return text ==# '' ? [] : split(text, '\r\n\|\r\|\n', 1)
endfunction

function! s:Indent() abort
  return ['--indent', min([shiftwidth(), 255])]
endfunction

" What the command prints, which reads the file {input}, if there is one. Throws what it says when
" it fails; only a dialog that is closed without Insert just prints nothing.
function! s:Run(arguments, input) abort
  let command = get(g:, 'listwright_command', 'listwright')
  if command =~# '^\~'
    let command = fnamemodify(command, ':p')
  endif
  if !executable(command)
    throw 'listwright: cannot run "' . command . '", see :help g:listwright_command'
  endif
  let output = tempname()
  let errors = tempname()
  try
    let status = s:Wait([command] + a:arguments, a:input, output, errors)
    if status == 0
      return readfile(output, 'b')
    elseif status == 1 && a:input ==# ''
      return []
    endif
    let said = join(filter(readfile(errors), 'v:val =~# "\\S"'), "\n")
    if said ==# ''
      let said = 'ended with status ' . status
    endif
    throw said =~# '^listwright: ' ? said : 'listwright: ' . said
  finally
    call delete(output)
    call delete(errors)
  endtry
endfunction

" Runs the program, which reads the file {input}, if there is one, and whose output and messages go
" to the files {output} and {errors}, without a shell, because users and systems have different ones.
" Waits for its end and returns its exit status. A GUI goes on drawing meanwhile. Where the user
" interrupts Vim, the program ends too.
function! s:Wait(program, input, output, errors) abort
  if has('nvim')
    let files = {'stdout': a:output, 'stderr': a:errors}
    let Write = {job, lines, name -> writefile(lines, files[name], 'b')}
    let job = jobstart(a:program, {'stdout_buffered': v:true, 'stderr_buffered': v:true,
      \ 'on_stdout': Write, 'on_stderr': Write})
    try
      if a:input !=# ''
        call chansend(job, readfile(a:input, 'b'))
      endif
      call chanclose(job, 'stdin')
      let status = jobwait([job])[0]
      return status == -2 ? 1 : status
    finally
      call jobstop(job)
    endtry
  elseif !has('job')
    throw 'listwright: this Vim cannot run jobs'
  endif
  let input = a:input ==# '' ? {'in_io': 'null'} : {'in_io': 'file', 'in_name': a:input}
  let job = job_start(a:program, extend(input,
    \ {'out_io': 'file', 'out_name': a:output, 'err_io': 'file', 'err_name': a:errors}))
  try
    " A list is there at once, and a dialog stays for long.
    let pause = 1
    while job_status(job) ==# 'run'
      execute 'sleep' pause . 'm'
      let pause = min([2 * pause, 20])
    endwhile
  finally
    call job_stop(job)
  endtry
  return job_info(job).exitval
endfunction

" Lines that stay are set, not replaced, so that marks and signs stay with them. At the cursor of an
" indented line all lines are as far in as that one.
function! s:Put(list, addresses, first, last) abort
  let lines = copy(a:list)
  let column = 0
  let behind = ''
  if a:addresses == 0
    let [from, to] = [line('.'), line('.')]
    let column = col('.') - 1
    let behind = strpart(getline('.'), column)
    let lines[0] = strpart(getline('.'), 0, column) . lines[0]
    let depth = matchstr(strpart(getline('.'), 0, column), '^\s*')
    let last = len(lines) - 1
    call map(lines, 'v:key > 0 && v:val . (v:key == last ? behind : "") !=# "" ? depth . v:val : v:val')
  else
    let from = a:addresses == 1 ? a:last + 1 : a:first
    let to = a:last
    " Whole lines have line breaks of their own.
    if lines[-1] ==# '' && len(lines) > 1
      call remove(lines, -1)
    endif
  endif
  let start = [from, len(lines[0])]
  let end = [from + len(lines) - 1, len(lines[-1])]
  let lines[-1] .= behind

  let set = min([to - from + 1, len(lines)])
  for number in range(from, from + set - 1)
    call setline(number, remove(lines, 0))
  endfor
  call append(from + set - 1, lines)
  if from + set <= to
    silent call deletebufline('%', from + set, to)
  endif

  call setpos("'[", [0, from, column + 1, 0])
  call setpos("']", [0, end[0], max([end[1], 1]), 0])
  if mode() =~# '^[iR]'
    call cursor(end[0], end[1] + 1)
  else
    call cursor(start[0], max([start[1], 1]))
  endif
endfunction

function! s:Say(highlighting, lines) abort
  execute 'echohl' a:highlighting
  for line in a:lines
    echomsg line
  endfor
  echohl None
endfunction

let &cpo = s:cpo
unlet s:cpo
