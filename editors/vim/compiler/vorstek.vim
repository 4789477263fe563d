" Vim compiler file
" Compiler: vorstek-cli check

if exists('current_compiler')
  finish
endif
let current_compiler = 'vorstek'

CompilerSet makeprg=vorstek-cli\ check\ --\ %:S

" FILE:LINE:COLUMN: warning: TEXT [NAME] and FILE:LINE: MESSAGE
CompilerSet errorformat=%W%f:%l:%c:\ warning:\ %m,%E%f:%l:\ Error:\ %m,%E%f:%l:\ %m
