; Skylark: the smallest thing worth calling a game. It shows a title and a bird that the pad moves.
;
; Read it from top to bottom; it takes five minutes. When you have changed something, build again.
; An NES program is in charge of two chips: the processor (6502), which runs what stands here, and the
; picture unit (PPU), which has a memory of its own and is spoken to through addresses $2000-$2007.

  .inesprg 1            ; 16 KiB of program: two banks of 8 KiB, number 0 and 1
  .ineschr 1            ; 8 KiB of tiles: bank 2
  .inesmap 0            ; the simplest cartridge there was
  .inesmir 1            ; two screens side by side (we use only one of them)

; ---- names ------------------------------------------------------------------------------------------

PPU_CTRL   = $2000      ; switches of the picture unit
PPU_MASK   = $2001      ; what it shows
PPU_STATUS = $2002      ; bit 7: the beam has left the screen
OAM_ADDR   = $2003
PPU_SCROLL = $2005
PPU_ADDR   = $2006      ; where in the picture memory the next byte goes ...
PPU_DATA   = $2007      ; ... and the byte
OAM_DMA    = $4014      ; copies a page of 256 bytes into the sprite memory
PAD        = $4016

SPRITES    = $0200      ; our list of sprites: y, tile, attributes, x for each of 64
SPEED      = 2          ; pixels the bird flies in a frame

; Variables. `.rs` counts addresses on: it gives names to memory, it emits nothing. Addresses below $100
; are the "zero page"; a `<` before an operand makes the short, fast instruction for them.

  .rsset $0000
text     .rs 2          ; address of the text that is being written
birdX    .rs 1
birdY    .rs 1
facing   .rs 1          ; $00 right, $40 left: just the bit that turns a sprite round
buttons  .rs 1          ; A B Select Start Up Down Left Right, one bit each
frames   .rs 1          ; counts the pictures shown, 60 a second

; ---- start ------------------------------------------------------------------------------------------

  .bank 0
  .org $C000

Reset:
  SEI                   ; no interrupts while we set up
  CLD
  LDX #$FF
  TXS                   ; the stack begins at $01FF and grows downwards
  INX                   ; X = 0
  STX PPU_CTRL          ; the picture unit sleeps: no signal, no picture
  STX PPU_MASK

  BIT PPU_STATUS        ; reading forgets an end of frame from before: we wait for new ones
  JSR WaitForBeam       ; it needs about two frames to warm up
ClearMemory:
  LDA #0
  STA <$00,x
  LDA #$FF              ; $FF as y keeps a sprite off the screen
  STA SPRITES,x
  INX
  BNE ClearMemory
  JSR WaitForBeam

; Colours: 32 bytes from the file go to $3F00 in the picture memory.
  LDA #$3F
  STA PPU_ADDR
  LDA #$00
  STA PPU_ADDR
  TAX
CopyColours:
  LDA Palette,x
  STA PPU_DATA
  INX
  CPX #32
  BNE CopyColours

; The screen: 32 x 30 tile numbers at $2000, and behind them 64 bytes that choose palettes. First all
; 1024 are set to 0, which stands for an empty tile.
  LDA #$20
  STA PPU_ADDR
  LDA #$00
  STA PPU_ADDR
  TAX                   ; 0, so that X comes round after 256
  LDY #4                ; and that four times
ClearScreen:
  STA PPU_DATA
  INX
  BNE ClearScreen
  DEY
  BNE ClearScreen

; Then the texts. Each begins with its place on the screen and ends with 0; a 0 as place ends the list.
  LDA #LOW(Texts)
  STA <text
  LDA #HIGH(Texts)
  STA <text+1
NextText:
  JSR NextByte
  BEQ TextsDone
  STA PPU_ADDR
  JSR NextByte
  STA PPU_ADDR
NextLetter:
  JSR NextByte
  BEQ NextText
  STA PPU_DATA
  BNE NextLetter        ; always: the letter was not 0
TextsDone:

; The meadow: four tiles, over and over. The lower rows are the same tiles 16 numbers on.
  LDA #$23
  STA PPU_ADDR
  LDA #$40              ; $2340 is row 26
  STA PPU_ADDR
  LDX #0
Meadow:
  TXA
  AND #3                ; 0 1 2 3 0 1 2 3 ...
  ORA #$84              ; grass
  CPX #32
  BCC MeadowTile
  ORA #$10              ; from the second row on: earth with flowers
MeadowTile:
  STA PPU_DATA
  INX
  CPX #128
  BNE Meadow

  LDA #120              ; the bird begins in the middle
  STA <birdX
  STA <birdY
  LDA #%10001000        ; tell us of each frame (NMI); sprites take the second half of the tiles
  STA PPU_CTRL

; ---- the game: once for each frame ------------------------------------------------------------------

Forever:
  LDA <frames
WaitForFrame:
  CMP <frames           ; the NMI below counts `frames`
  BEQ WaitForFrame
  JSR ReadPad
  JSR MoveBird
  JSR DrawBird
  JMP Forever

; Eight reads of the pad give eight buttons, one bit each. ROL gathers them.
ReadPad:
  LDA #1
  STA PAD
  LDA #0
  STA PAD
  LDX #8
.next:
  LDA PAD
  LSR A                 ; the button goes to the carry ...
  ROL <buttons          ; ... and from there into `buttons`
  DEX
  BNE .next
  RTS

MoveBird:
  LDA <buttons
  AND #%00000001
  BEQ .notRight
  LDA #0
  STA <facing
  LDA <birdX
  CMP #240 - SPEED      ; the screen is 256 wide, the bird 16
  BCS .notRight
  ADC #SPEED            ; the carry is clear here: BCS saw to it
  STA <birdX
.notRight:
  LDA <buttons
  AND #%00000010
  BEQ .notLeft
  LDA #$40
  STA <facing
  LDA <birdX
  CMP #SPEED
  BCC .notLeft
  SBC #SPEED            ; and here it is set
  STA <birdX
.notLeft:
  LDA <buttons
  AND #%00000100
  BEQ .notDown
  LDA <birdY
  CMP #198              ; the meadow
  BCS .notDown
  ADC #SPEED
  STA <birdY
.notDown:
  LDA <buttons
  AND #%00001000
  BEQ .notUp
  LDA <birdY
  CMP #16
  BCC .notUp
  SBC #SPEED
  STA <birdY
.notUp:
  RTS

; The bird is 16 x 16 pixels, so it takes four sprites. The table says for each how far it lies from the
; bird's corner, and its tile. A bird that faces left has its columns exchanged as well.
DrawBird:
  LDX #0                ; place in the list of sprites
.sprite:
  LDA BirdParts,x       ; how far down
  CLC
  ADC <birdY
  STA SPRITES,x
  LDA <frames           ; every eighth frame the other wing
  AND #%00001000
  LSR A
  LSR A                 ; 0 or 2
  CLC
  ADC BirdParts+1,x     ; the tile
  STA SPRITES+1,x
  LDA <facing
  STA SPRITES+2,x
  BEQ .right
  LDA #8                ; facing left: 8 minus how far to the right
  SEC
  SBC BirdParts+3,x
  JMP .place
.right:
  LDA BirdParts+3,x
.place:
  CLC
  ADC <birdX
  STA SPRITES+3,x
  INX
  INX
  INX
  INX
  CPX #16
  BNE .sprite
  RTS

BirdParts:              ; down, tile, unused, right: in the order of the sprite list
  .db 0, $00, 0, 0
  .db 0, $01, 0, 8
  .db 8, $10, 0, 0
  .db 8, $11, 0, 8

; ---- helpers ----------------------------------------------------------------------------------------

WaitForBeam:
  BIT PPU_STATUS        ; bit 7 goes to the sign
  BPL WaitForBeam
  RTS

; The next byte of `text`, in A; Z says whether it is 0.
NextByte:
  LDY #0
  LDA [text],y
  INC <text
  BNE .same
  INC <text+1
.same:
  CMP #0
  RTS

; The picture unit calls this at the end of each frame, when it draws nothing: the only time when its
; memory may be written to.
FrameDone:
  PHA                   ; the game goes on afterwards and must find A as it was
  LDA #0
  STA OAM_ADDR
  LDA #HIGH(SPRITES)
  STA OAM_DMA
  LDA #0
  STA PPU_SCROLL
  STA PPU_SCROLL
  LDA #%00011110        ; show background and sprites
  STA PPU_MASK
  INC <frames
  PLA
NothingToDo:
  RTI

; ---- data -------------------------------------------------------------------------------------------

; In the tile file a letter's number is its ASCII code, so texts can be written as such.
Texts:
  .db $21,$0C, "SKYLARK", 0
  .db $22,$C6, "THE PAD MOVES THE BIRD", 0
  .db $20,$A3, $80,$81,$82,$83, 0   ; a cloud: upper half, lower half
  .db $20,$C3, $90,$91,$92,$93, 0
  .db $20,$76, $80,$81,$82,$83, 0
  .db $20,$96, $90,$91,$92,$93, 0
  .db $21,$99, $80,$81,$82,$83, 0
  .db $21,$B9, $90,$91,$92,$93, 0
  .db $21,$E2, $80,$81,$82,$83, 0
  .db $22,$02, $90,$91,$92,$93, 0
  .db 0

Palette:
  .incbin "skylark.pal"

; The last six bytes of the program tell the processor where to go.
  .bank 1
  .org $FFFA
  .dw FrameDone         ; at the end of each frame
  .dw Reset             ; at the start
  .dw NothingToDo       ; when a cartridge asks for it; ours never does

  .bank 2
  .org $0000
  .incbin "skylark.chr"
