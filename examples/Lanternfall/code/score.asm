; What is counted, and how it gets to the screen.

; Adds A tens to the score: 3 stands for 30 points, 50 for 500. X and Y are kept.
ScoreAdd:
  STA <points
  STX <keepX
  STY <keepY
  SET #0, <scoreShown
  LDX #DIGITS-2                 ; the last digit is always 0: begin at the tens
.tens:
  LDA <points
  CMP #10
  BCC .units
  SBC #10
  STA <points
  JSR .carry                    ; ten tens are a hundred
  JMP .tens
.units:
  CLC
  ADC score,x
  STA score,x
  CMP #10
  BCC .done
  SBC #10
  STA score,x
  JSR .carry
.done:
  LDX <keepX
  LDY <keepY
  RTS

; One more in the digits above.
.carry:
  LDY #DIGITS-3
.next:
  LDA score,y
  CLC
  ADC #1
  STA score,y
  CMP #10
  BCC .carried
  LDA #0
  STA score,y
  DEY
  BPL .next
.carried:
  RTS

; Is this the best score so far? The first digit that differs decides.
KeepBest:
  LDX #0
.compare:
  LDA score,x
  CMP best,x
  BCC .done                     ; lower
  BNE .keep                     ; higher
  INX
  CPX #DIGITS
  BNE .compare
.done:
  RTS
.keep:
  LDX #DIGITS-1
.copy:
  LDA score,x
  STA best,x
  DEX
  BPL .copy
  LDA #HIGH(BEST_AT)            ; and show it on the title
  LDY #LOW(BEST_AT)
  JSR QueueOpen
  LDY #0
.digit:
  LDA best,y
  ORA #'0'
  JSR QueueByte
  INY
  CPY #DIGITS
  BNE .digit
  JMP QueueClose

; Once a frame: what the screen shows follows what has been counted, one lantern and one flame at a time.
ShowCounters:
  LDA <scoreShown
  BNE .lamps
  INC <scoreShown
  LDA #HIGH(SCORE_AT)
  LDY #LOW(SCORE_AT)
  JSR QueueOpen
  LDY #0
.digit:
  LDA score,y
  ORA #'0'                      ; the tile of a digit is its letter
  JSR QueueByte
  INY
  CPY #DIGITS
  BNE .digit
  JSR QueueClose

.lamps:
  LDA <litShown
  CMP <lit
  BEQ .flames
  BCC .light
  DEC <litShown                 ; too many shine: the last goes out
  LDX #TILE_LAMP
  LDA <litShown
  JMP .lamp
.light:
  INC <litShown
  LDX #TILE_LAMP + 2
.lamp:
  STX <tile                     ; A is the lantern's number; it is 2 x 2 tiles
  ASL A
  STA <count
  LDX #2                        ; two rows
.row:
  LDA <count
  CLC
  ADC #LOW(LAMPS_AT)
  TAY
  LDA #HIGH(LAMPS_AT)
  JSR QueueOpen
  LDA <tile
  JSR QueueByte
  LDA <tile
  CLC
  ADC #1
  JSR QueueByte
  JSR QueueClose
  LDA <tile
  CLC
  ADC #16
  STA <tile
  LDA <count
  CLC
  ADC #32
  STA <count
  DEX
  BNE .row

.flames:
  LDA <flamesShown
  CMP <flames
  BEQ .done
  BCC .more
  DEC <flamesShown
  LDX #TILE_FLAME + 1
  LDA <flamesShown
  JMP .flame
.more:
  INC <flamesShown
  LDX #TILE_FLAME
.flame:
  STX <tile                     ; A is the flame's number
  CLC
  ADC #LOW(FLAMES_AT)
  TAY
  LDA #HIGH(FLAMES_AT)
  JSR QueueOpen
  LDA <tile
  JSR QueueByte
  JSR QueueClose
.done:
  RTS

; The number of the night.
QueueNight:
  LDA #HIGH(NIGHT_AT)
  LDY #LOW(NIGHT_AT)
  JSR QueueOpen
  LDA <night
  CLC
  ADC #'1'
  JSR QueueByte
  JMP QueueClose
