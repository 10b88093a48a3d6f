; Macros: a line such as `SET #1, PAD1` is replaced by the lines between .macro and .endm, with \1, \2 ...
; standing for what the call gives. They save typing; the program gets no smaller by them.

; SET what, where: put a number or the content of a place into another place, in A. Both may be anything
; that LDA and STA take: SET #1, <state or SET table,x, place,y (an index belongs to what stands before it).
SET .macro
  LDA \1
  STA \2
  .endm

; POINT pointer, address: the address of something into two bytes of the zero page.
POINT .macro
  LDA #LOW(\2)
  STA <\1
  LDA #HIGH(\2)
  STA <\1+1
  .endm

; PLAY sound: start a sound effect. X and Y are kept.
PLAY .macro
  LDA #\1
  JSR SoundPlay
  .endm

; SONG song: start a piece of music. X and Y are not kept.
SONG .macro
  LDA #\1
  JSR SongStart
  .endm

; IF_PRESSED buttons, where: go on at `where` when one of these buttons has just gone down.
IF_PRESSED .macro
  LDA <pressed
  AND #\1
  BNE \2
  .endm

; ---- screens are lists of these (screens.asm) -------------------------------------------------------
; Each makes a few bytes that DrawScreen (picture.asm) understands. x is 0-31, y is 0-29, in tiles.

; STAMPS x, y, width, height, tile, times: a picture, side by side as often as said.
STAMPS .macro
  .db \6, HIGH((\2) * 32 + (\1)), LOW((\2) * 32 + (\1)), \3, \4, \5
  .endm

; STAMP x, y, width, height, tile: a picture once. A macro may use another one.
STAMP .macro
  STAMPS \1, \2, \3, \4, \5, 1
  .endm

; FILL x, y, width, height, tile: the same tile all over.
DRAW_FILL = $80
FILL .macro
  .db DRAW_FILL, HIGH((\2) * 32 + (\1)), LOW((\2) * 32 + (\1)), \3, \4, \5
  .endm

; WRITE x, y, "text"
DRAW_TEXT = $81
WRITE .macro
  .db DRAW_TEXT, HIGH((\2) * 32 + (\1)), LOW((\2) * 32 + (\1)), \3, 0
  .endm

DRAW_END = 0

; MESSAGE x, y, "text", length: a text in the form that the queue takes (picture.asm), on the right screen.
MESSAGE .macro
  .db \4, HIGH(SCREEN_RIGHT + (\2) * 32 + (\1)), LOW(SCREEN_RIGHT + (\2) * 32 + (\1)), \3
  .endm
