" Vim filetype plugin
" Language: Vorstek program listings
"
" :make checks the listing, gggqG brings it into the canonical form.

if exists('b:did_ftplugin')
  finish
endif
let b:did_ftplugin = 1

setlocal comments=:;
setlocal commentstring=;\ %s
setlocal formatoptions-=t formatoptions+=croql
setlocal formatprg=vorstek-cli\ fmt\ -
compiler vorstek

let b:undo_ftplugin = 'setlocal comments< commentstring< formatoptions< formatprg<'
      \ .. ' makeprg< errorformat< | unlet! b:current_compiler'
