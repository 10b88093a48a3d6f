; The screen: whole screens while it is dark, a few bytes at a time while it is shown, and sprites.

; ---- whole screens: only while the picture unit sleeps ----------------------------------------------

DrawEverything:
  BIT PPU_STATUS                ; so that the next write to PPU_ADDR is the high half
  SET #HIGH(COLOURS), PPU_ADDR
  SET #LOW(COLOURS), PPU_ADDR
  LDX #0
.colour:
  LDA Palettes,x
  STA PPU_DATA
  INX
  CPX #32
  BNE .colour

  POINT source, VillageScreen
  LDA #HIGH(SCREEN_RIGHT)
  JSR DrawScreen
  POINT source, TitleScreen
  LDA #HIGH(SCREEN_LEFT)

; Draws the list at `source` (made by the macros STAMP, FILL, WRITE) on the screen whose address has the
; high byte A. Behind the list stand 64 bytes that choose a palette for each 16 x 16 pixels.
DrawScreen:
  STA <times                    ; kept here for a moment
  STA PPU_ADDR
  SET #0, PPU_ADDR
  LDX #0
  LDY #4
.clear:
  STA PPU_DATA                  ; 4 x 256 times tile 0
  INX
  BNE .clear
  DEY
  BNE .clear
  LDA <times
  STA <tile                     ; the high byte; DrawItem adds it to each place

.item:
  JSR NextByte
  BEQ .palettes                 ; DRAW_END
  STA <times
  JSR DrawItem
  JMP .item

.palettes:
  LDA <tile                     ; they begin at $3C0 behind the screen's start
  CLC
  ADC #$03
  STA PPU_ADDR
  SET #$C0, PPU_ADDR
  LDX #64
.palette:
  JSR NextByte
  STA PPU_DATA
  DEX
  BNE .palette
  RTS

; One item of the list; its first byte is in `times`.
DrawItem:
  JSR NextByte
  CLC
  ADC <tile
  STA <cell+1
  JSR NextByte
  STA <cell
  LDA <times
  CMP #DRAW_TEXT
  BEQ .text
  JSR NextByte
  STA <width
  JSR NextByte
  STA <height
  JSR NextByte
  STA <count                    ; the first tile of the row
.row:
  JSR SetCell
  LDA <times
  CMP #DRAW_FILL
  BEQ .fill
  STA <drawX                    ; how often still
.again:
  LDY <count
  LDX <width
.tile:
  STY PPU_DATA
  INY                           ; the tile beside it
  DEX
  BNE .tile
  DEC <drawX
  BNE .again
  LDA <count
  CLC
  ADC #16                       ; the tile below it
  STA <count
.next:
  LDA <cell                     ; one row down
  CLC
  ADC #32
  STA <cell
  BCC .same
  INC <cell+1
.same:
  DEC <height
  BNE .row
  RTS

.fill:
  LDA <count
  LDX <width
.fillTile:
  STA PPU_DATA
  DEX
  BNE .fillTile
  BEQ .next                     ; always

.text:
  JSR SetCell
.letter:
  JSR NextByte
  BEQ .done
  STA PPU_DATA
  BNE .letter                   ; always
.done:
  RTS

SetCell:
  SET <cell+1, PPU_ADDR
  SET <cell, PPU_ADDR
  RTS

; The next byte at `source`, in A. Z says whether it is 0. X is kept.
NextByte:
  LDY #0
  LDA [source],y
  INC <source
  BNE .same
  INC <source+1
.same:
  TAY                           ; sets Z
  RTS

; ---- a few bytes: put into the queue here, shown by FrameDone ---------------------------------------
; Not more than about 60 bytes a frame: there is no time for more.

; A new entry for the place with the high half A and the low half Y. X is kept, here and below.
QueueOpen:
  STX <queueX
  LDX <queueEnd
  STX <queueCount
  STA queue+1,x
  TYA
  STA queue+2,x
  INX
  INX
  INX
  STX <queueEnd
  LDX <queueX
  RTS

; Appends A to the entry. Y is kept.
QueueByte:
  STX <queueX
  LDX <queueEnd
  STA queue,x
  INC <queueEnd
  LDX <queueX
  RTS

; The entry is whole: sets its count, and the end behind it.
QueueClose:
  STX <queueX
  LDX <queueEnd
  LDA #0
  STA queue,x
  TXA
  SEC
  SBC <queueCount
  SEC
  SBC #3
  LDX <queueCount
  STA queue,x
  LDX <queueX
  RTS

; Appends the message at `source`, which has the form of an entry.
QueueMessage:
  LDY #0
  LDA [source],y
  CLC
  ADC #3
  STA <count
  LDX <queueEnd
.byte:
  LDA [source],y
  STA queue,x
  INX
  INY
  CPY <count
  BNE .byte
  STX <queueEnd
  LDA #0
  STA queue,x
  RTS

; Called by FrameDone: everything in the queue goes to the picture memory.
QueueShow:
  BIT PPU_STATUS
  LDX #0
.entry:
  LDY queue,x
  BEQ .done
  LDA queue+1,x
  STA PPU_ADDR
  LDA queue+2,x
  STA PPU_ADDR
.byte:
  LDA queue+3,x
  STA PPU_DATA
  INX
  DEY
  BNE .byte
  INX
  INX
  INX
  JMP .entry
.done:
  STY queue                     ; Y is 0
  STY <queueEnd
  RTS

; ---- sprites ----------------------------------------------------------------------------------------

SpritesBegin:
  SET #0, <spriteEnd
  RTS

; Those that were not used this time go below the screen.
SpritesEnd:
  LDX <spriteEnd
  LDA #OFFSCREEN
.next:
  STA SPRITES,x
  INX
  INX
  INX
  INX
  BNE .next                     ; the page is full when X comes round
  RTS

; A picture of 16 x 16 pixels at drawX, drawY, made of four sprites.
Draw16:
  LDX <spriteEnd
  LDY #3
.part:
  LDA PartDown,y
  CLC
  ADC <drawY
  STA SPRITES,x
  LDA <drawLook
  STA SPRITES+2,x
  AND #FLIP                     ; turned round: left and right tile exchanged
  BEQ .notFlipped
  LDA #1
.notFlipped:
  EOR PartTile,y
  CLC
  ADC <drawTile
  STA SPRITES+1,x
  LDA PartRight,y
  CLC
  ADC <drawX
  STA SPRITES+3,x
  INX
  INX
  INX
  INX
  DEY
  BPL .part
  STX <spriteEnd
  RTS

PartDown:  .db 0, 0, 8, 8
PartRight: .db 0, 8, 0, 8
PartTile:  .db 0, 1, 16, 17
