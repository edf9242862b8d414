" Lists of nine lines by our command and by a filter, taking turns; writes the medians in seconds.
runtime plugin/listwright.vim
let g:listwright_command = $LISTWRIGHT
let g:listwright_step_folder = $FOLDER
let times = {'silent read !seq 9': [], 'silent .Listwright nine': []}
for round in range(41)
  for command in keys(times)
    silent %delete _
    let start = reltime()
    execute command
    call add(times[command], reltimefloat(reltime(start)))
    if line('$') != 10
      cquit
    endif
  endfor
endfor
let medians = map(['silent read !seq 9', 'silent .Listwright nine'], 'sort(times[v:val], "f")[20]')
call writefile(map(medians, 'printf("%.6f", v:val)'), $RESULT)
qall!
