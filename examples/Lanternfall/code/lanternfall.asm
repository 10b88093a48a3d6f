; Lanternfall
;
; On three nights paper lanterns fall from the sky. The fox catches them and hangs them up: when all
; fourteen of the garland are lit, the night is won. A lantern that reaches the ground goes out, and with
; it one of three flames; so does being hit by the crow. Caught in the air, a lantern counts double. Who
; lands on the crow from above gets the better of it.
;
;   left, right: run      A: jump (hold for higher)      Start: begin, pause
;
; This is the main file: it says what the cartridge is like, includes the other files in the order in
; which they land in memory, and holds the start, the frame's end and the main loop. Read on in
;
;   constants.asm, macros.asm, ram.asm     the words the other files use; they emit nothing
;   game.asm                               the states of the game, from title to end
;   player.asm, things.asm, score.asm      the fox; what falls and flies; what is counted
;   picture.asm, screens.asm               how the screen is drawn; what is drawn
;   sound.asm, songs.asm, notes.asm        how music is played; what is played

  .inesprg 1                    ; 16 KiB of program: banks 0 and 1
  .ineschr 1                    ; 8 KiB of tiles: bank 2
  .inesmap 0                    ; no mapper chip: everything is always there
  .inesmir 1                    ; two screens side by side: the title left, the village right

  .include "constants.asm"
  .include "macros.asm"
  .include "ram.asm"

; ---- bank 0, $C000: the program ---------------------------------------------------------------------

  .bank 0
  .org $C000

Reset:
  SEI
  CLD
  LDX #$40
  STX APU_FRAME                 ; the sound chip is not to interrupt us
  LDX #$FF
  TXS
  INX                           ; X = 0
  STX PPU_CTRL
  STX PPU_MASK
  STX DMC_CONTROL

  BIT PPU_STATUS                ; the picture unit needs two frames to warm up
.warm1:
  BIT PPU_STATUS
  BPL .warm1
.clear:
  LDA #0                        ; meanwhile: all 2 KiB of memory to zero ...
  STA <$00,x
  STA $0100,x
  STA $0300,x
  STA $0400,x
  STA $0500,x
  STA $0600,x
  STA $0700,x
  LDA #OFFSCREEN                ; ... but the sprites below the screen's edge
  STA SPRITES,x
  INX
  BNE .clear
.warm2:
  BIT PPU_STATUS
  BPL .warm2

  LDA #$5A                      ; any number but 0
  STA <seed
  JSR DrawEverything            ; both screens and the colours, once and for all
  JSR SoundStart
  JSR ShowTitle
  LDA #CTRL_NORMAL
  STA <control
  STA PPU_CTRL                  ; from here on FrameDone is called 60 times a second

; The main loop: one round is one frame. What the round prepares (sprites, and bytes for the screen in
; `queue`) is shown by FrameDone when the beam has left the screen.
MainLoop:
  INC <frames
  JSR ReadPad
  JSR Random                    ; turned on every frame, so it depends on when Start is pressed
  JSR SpritesBegin
  JSR RunState
  JSR ShowCounters
  JSR SpritesEnd
  LDA #1
  STA <frameReady
.wait:
  LDA <frameReady
  BNE .wait
  JMP MainLoop

; Called by the picture unit at the end of each frame, whatever the main loop is doing. There is time for
; about 2200 cycles of writing to the screen; sound comes last, since it may take longer.
FrameDone:
  PHA
  TXA
  PHA
  TYA
  PHA
  LDA <frameReady
  BEQ .sound                    ; the round took longer than a frame: show the last picture again
  LDA #0
  STA OAM_ADDR
  LDA #HIGH(SPRITES)
  STA OAM_DMA                   ; all 64 sprites at one go
  JSR QueueShow
  LDA <control
  STA PPU_CTRL                  ; which of the two screens is on the left ...
  LDA <scroll
  STA PPU_SCROLL                ; ... and how far it is pushed aside
  LDA #0
  STA PPU_SCROLL
  LDA #MASK_ALL
  STA PPU_MASK
  LDA #0
  STA <frameReady
.sound:
  JSR SoundFrame
  PLA
  TAY
  PLA
  TAX
  PLA
Nothing:
  RTI

; The eight buttons in `pad`; in `pressed` those that have just gone down.
ReadPad:
  LDA <pad
  STA <padBefore
  SET #1, PAD1
  SET #0, PAD1
  LDX #8
.next:
  LDA PAD1
  LSR A
  ROL <pad
  DEX
  BNE .next
  LDA <padBefore
  EOR #$FF
  AND <pad
  STA <pressed
  RTS

; A new number in A and `seed`: a shift register whose feedback runs through all values but 0.
Random:
  LDA <seed
  LSR A
  BCC .done
  EOR #$B4
.done:
  STA <seed
  RTS

  .include "game.asm"
  .include "player.asm"
  .include "things.asm"
  .include "score.asm"
  .include "picture.asm"

; ---- bank 1, $E000: sound and data ------------------------------------------------------------------

  .bank 1
  .org $E000

  .include "sound.asm"
  .include "notes.asm"
  .include "songs.asm"
  .include "screens.asm"

Palettes:
  .incbin "lanternfall.pal"

; The last six bytes tell the processor where to go.
  .org $FFFA
  .dw FrameDone
  .dw Reset
  .dw Nothing

; ---- bank 2: the tiles ------------------------------------------------------------------------------

  .bank 2
  .org $0000
  .incbin "lanternfall.chr"
