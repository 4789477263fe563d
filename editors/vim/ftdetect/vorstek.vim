" Vorstek program listings: all *.vorstek, and each *.txt whose first lines can
" hardly be anything else.

" Program lines have one or two short words, and at least one of the first 20
" is what most programs contain.
function! s:IsListing() abort
  let l:lines = filter(getline(1, 200), 'v:val =~# ''^[ \t]*[^ \t;]''')[:19]
  let l:shape = '^[ \t]*[^ \t;]\{1,17}\%([ \t]\+[.0-9i]\{1,3}\)\=[ \t]*\%(;.*\)\=$'
  let l:sure = '\C^[ \t]*\%(\%(LBL\|GTO\|GSB\|STO\|RCL\)[ \t]\+[.0-9i]\+\|RTN\|R/S\|ENTER\)[ \t]*\%(;.*\)\=$'
  return match(l:lines, l:sure) >= 0 && empty(filter(l:lines, 'v:val !~# l:shape'))
endfunction

autocmd BufNewFile,BufRead *.vorstek set filetype=vorstek
" Vim itself has called it a text by now.
autocmd BufRead *.txt if &filetype =~# '^\%(text\)\=$' && s:IsListing() | set filetype=vorstek | endif
