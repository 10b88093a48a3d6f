; The fox.

FoxStart:
  SET #120, <foxX
  SET #FLOOR, <foxY
  LDA #0
  STA <foxYPart
  STA <foxSpeed
  STA <foxSpeed+1
  STA <foxFlip
  STA <foxRuns
  SET #1, <onFloor
  RTS

; What the pad says.
FoxMove:
  LDA <foxSpared
  BEQ .run
  DEC <foxSpared
.run:
  SET #0, <foxRuns
  LDA <pad
  AND #BUTTON_RIGHT
  BEQ .notRight
  SET #0, <foxFlip
  INC <foxRuns
  LDA <foxX
  CMP #RIGHT_EDGE
  BCS .notRight
  ADC #RUN_SPEED                ; the carry is clear here
  STA <foxX
.notRight:
  LDA <pad
  AND #BUTTON_LEFT
  BEQ .notLeft
  SET #FLIP, <foxFlip
  INC <foxRuns
  LDA <foxX
  CMP #LEFT_EDGE
  BCC .notLeft
  SBC #RUN_SPEED                ; and here it is set
  STA <foxX
.notLeft:
  LDA <onFloor
  BEQ FoxFall
  IF_PRESSED BUTTON_A, FoxJump
  RTS

FoxJump:
  PLAY SOUND_JUMP
  LDA #LOW(JUMP)
  LDX #HIGH(JUMP)

; Off the ground, with the speed A (parts) and X (pixels).
FoxLeap:
  STA <foxSpeed
  STX <foxSpeed+1
  SET #0, <onFloor
  RTS

; In the air: gravity changes the speed, the speed changes the height. Both have 256 parts to a pixel, so
; each sum is one of two bytes, with the carry between them.
FoxFall:
  LDX #GRAVITY
  LDA <foxSpeed+1
  BPL .gravity                  ; falling
  LDA <pad
  BPL .gravity                  ; A, bit 7, is not held
  LDX #GRAVITY_UP
.gravity:
  TXA
  CLC
  ADC <foxSpeed
  STA <foxSpeed
  LDA <foxSpeed+1
  ADC #0
  STA <foxSpeed+1
  BMI .move
  CMP #FALL_MOST
  BCC .move
  SET #FALL_MOST, <foxSpeed+1
.move:
  LDA <foxYPart
  CLC
  ADC <foxSpeed
  STA <foxYPart
  LDA <foxY
  ADC <foxSpeed+1
  STA <foxY
  CMP #FLOOR
  BCC .done
  SET #FLOOR, <foxY
  LDA #0
  STA <foxYPart
  STA <foxSpeed
  STA <foxSpeed+1
  SET #1, <onFloor
.done:
  RTS

; Up and down for joy.
FoxCheer:
  SET #0, <foxSpared
  STA <foxRuns
  LDA <onFloor
  BEQ FoxFall
  LDA #LOW(BOUNCE)
  LDX #HIGH(BOUNCE)
  JMP FoxLeap

; Hit. A fox that has just been hit is spared for a while.
FoxHurt:
  LDA <foxSpared
  BNE .spared
  SET #SPARED, <foxSpared
  PLAY SOUND_HURT
  LDA <flames
  BEQ .spared                   ; the last has just gone out
  DEC <flames
.spared:
  RTS

FoxDraw:
  LDA <foxSpared
  AND #%00000100                ; spared: now here, now gone
  BEQ .shown
  RTS
.shown:
  LDA <onFloor
  BEQ .jumps
  LDA <foxRuns
  BEQ .stands
  LDA <foxX                     ; the legs go with the way, also when it is the picture that moves
  CLC
  ADC <scroll
  AND #%00001000
  LSR A
  LSR A
  CLC
  ADC #FOX_RUNS
  BNE .draw                     ; always
.stands:
  LDA #FOX_STANDS
  BEQ .draw                     ; always
.jumps:
  LDA #FOX_JUMPS
.draw:
  STA <drawTile
FoxPlace:
  SET <foxX, <drawX
  SET <foxY, <drawY
  LDA <foxFlip
  ORA #PALETTE_FOX
  STA <drawLook
  JMP Draw16

FoxDrawBeaten:
  SET #FOX_BEATEN, <drawTile
  JMP FoxPlace
