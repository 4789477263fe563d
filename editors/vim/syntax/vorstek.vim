" Vim syntax file
" Language: Vorstek program listings
"
" Highlights a line as the loader reads it: an instruction with its operand, or
" a number; after that, only a comment. Whatever the loader rejects is
" vorstekError. Two things need the complete file and are left to
" `vorstek-cli check`: more than 98 program lines, and lines of more than 510
" bytes.

if exists('b:current_syntax')
  finish
endif

let s:cpo = &cpoptions
set cpoptions&vim

syntax case match

" A word ends at a blank or a comment.
let s:end = '\m\%([ \t;]\|$\)\@='

" Instructions of one highlight group, which take the operands `next`, "" for
" none. One that lacks its operand does not match.
function! s:Instructions(group, next, words) abort
  let l:words = join(map(split(a:words), 'escape(v:val, "/\\")'), '\|')
  let l:ahead = empty(a:next) ? '' : '\%([ \t]\+[^ \t;]\)\@='
  execute 'syntax match' a:group 'contained skipwhite'
        \ 'nextgroup=' .. (empty(a:next) ? '' : a:next .. ',') .. 'vorstekError'
        \ '/\V\%(' .. l:words .. '\)' .. s:end .. l:ahead .. '/'
endfunction

function! s:Operand(group, pattern) abort
  execute 'syntax match' a:group 'contained skipwhite nextgroup=vorstekError'
        \ '/' .. a:pattern .. s:end .. '/'
endfunction

" Of the items that match at one place, the last one wins.
syntax match vorstekStart /^[ \t]*/ nextgroup=@vorstekFirst
syntax match vorstekError /[^ \t;]\+/ contained skipwhite nextgroup=vorstekError
syntax match vorstekComment /;.*/ contains=@Spell

syntax cluster vorstekFirst contains=vorstekError,vorstekNumber,vorstekInstruction,vorstekJump,vorstekTest,vorstekStop,vorstekLabel

" Up to 17 characters.
call s:Operand('vorstekNumber', '\%([^ \t;]\{18}\)\@![-+]\=\%(\d\+\.\=\d*\|\.\d\+\)\%([eE][-+]\=\d\+\)\=')

call s:Operand('vorstekDigits',   '\d')
call s:Operand('vorstekTarget',   '\d')
call s:Operand('vorstekRegister', '\%(\d\|\.0*\%(10\|\d\)\)')
call s:Operand('vorstekIndirect', 'i')

call s:Instructions('vorstekInstruction', '',
      \ 'Mean StdDev LR Sum- x<>y Rolldown RCLSum+ Sum+ % ClearREG ClearSum ENTER CHS CLX'
      \ .. ' GRD RAD DEG ln log ->R - e^x 10^x ->P sin cos tan + sin^-1 cos^-1 tan^-1 INT'
      \ .. ' sqrt y^x * FRAC x^2 ABS ->H.MS LASTx PAUSE / ->H pi 1/x ClearG SumG SetG')
call s:Instructions('vorstekInstruction', 'vorstekDigits', 'FIX SCI ENG')
call s:Instructions('vorstekInstruction', 'vorstekRegister,vorstekIndirect',
      \ 'STO STO+ STO- STO* STO/ RCL')
call s:Instructions('vorstekJump', '', 'RTN')
call s:Instructions('vorstekJump', 'vorstekTarget,vorstekIndirect', 'GSB GTO')
call s:Instructions('vorstekTest', '',
      \ 'DSZ ISZ x<=y x>y x!=y x=y x<0 x>0 x!=0 x=0')
call s:Instructions('vorstekStop', '', 'R/S')
call s:Instructions('vorstekLabel', 'vorstekTarget', 'LBL')

highlight default link vorstekComment     Comment
highlight default link vorstekInstruction Function
highlight default link vorstekJump        Statement
highlight default link vorstekTest        Conditional
highlight default link vorstekStop        Statement
highlight default link vorstekLabel       Label
highlight default link vorstekTarget      Label
highlight default link vorstekRegister    Identifier
highlight default link vorstekIndirect    Special
highlight default link vorstekDigits      Number
highlight default link vorstekNumber      Number
highlight default link vorstekError       Error

delfunction s:Instructions
delfunction s:Operand
unlet s:end

let b:current_syntax = 'vorstek'

let &cpoptions = s:cpo
unlet s:cpo
