" The :Listwright command. What it does is loaded with its first use.

if exists('g:loaded_listwright')
  finish
endif
let g:loaded_listwright = 1

" The default of -1 allows for line 0; <range> tells how many addresses there are. Without -bar the
" argument goes to the end of the line, so a file name may hold a | or a ".
command! -nargs=? -range=-1 -complete=customlist,listwright#Complete Listwright call listwright#Insert(<range>, <line1>, <line2>, <q-args>)
