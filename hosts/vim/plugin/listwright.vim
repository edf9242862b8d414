" The commands. What they do is loaded with their first use.

if exists('g:loaded_listwright')
  finish
endif
let g:loaded_listwright = 1

" The default of -1 allows for line 0; <range> tells how many addresses there are. Without -bar the
" argument goes to the end of the line, so a file name may hold a | or a ".
command! -nargs=? -range=-1 -complete=customlist,listwright#Complete Listwright call listwright#Insert(<range>, <line1>, <line2>, <q-args>)

" Here <range> of 0 means the lines around the cursor.
command! -bang -nargs=? -range -complete=customlist,listwright#Complete ListwrightNumber call listwright#Number(<range>, <line1>, <line2>, <bang>0, <q-args>)
command! -range ListwrightRenumber call listwright#Relabel('--renumber', <range>, <line1>, <line2>)
command! -range ListwrightUnnumber call listwright#Relabel('--unnumber', <range>, <line1>, <line2>)
command! -range ListwrightContinue call listwright#Continue(<line1>, <line2>)
