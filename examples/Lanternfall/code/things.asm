; The things that fall and fly. Up to eight at a time; each has a number, which stands in X almost
; everywhere here, and its values in the lists kind,x thingX,x thingY,x and so on (ram.asm).

KIND_NONE  = 0
KIND_GOLD  = 1                  ; a lantern: slow, it sways
KIND_RED   = 2                  ; a lantern: fast, straight
KIND_CROW  = 3
KIND_SPARK = 4                  ; what is left of something caught ...
KIND_SMOKE = 5                  ; ... and of something lost

; For each kind: picture, palette, the bit of thingTime that turns to the other picture, and the time
; after which it is gone (0: never).
KindTile:    .db 0, LANTERN, LANTERN, CROW, SPARK, SMOKE
KindPalette: .db 0, PALETTE_GOLD, PALETTE_RED, PALETTE_CROW, PALETTE_GOLD, PALETTE_CROW
KindBit:     .db 0, %00010000, %00010000, %00001000, %00001000, %00010000
KindEnd:     .db 0, 0, 0, 0, 16, 32

; For each night: frames between two things, and how fast they are.
NightPause:    .db 78, 62, 50
GoldSpeedPart: .db $B0, $D8, $00
GoldSpeed:     .db $00, $00, $01
RedSpeedPart:  .db $40, $80, $C0
RedSpeed:      .db $01, $01, $01

; What comes: drawn by lot from these sixteen.
Lots:
  .db KIND_GOLD, KIND_GOLD, KIND_GOLD, KIND_GOLD, KIND_GOLD, KIND_GOLD, KIND_GOLD, KIND_GOLD
  .db KIND_GOLD, KIND_GOLD, KIND_RED,  KIND_RED,  KIND_RED,  KIND_CROW, KIND_CROW, KIND_CROW

; How far a lantern sways, in sixteen steps.
Sway:
  .db 0, 3, 5, 7, 8, 7, 5, 3, 0, -3, -5, -7, -8, -7, -5, -3

ThingsClear:
  LDX #THINGS-1
  LDA #KIND_NONE
.next:
  STA kind,x
  DEX
  BPL .next
  RTS

; ---- coming -----------------------------------------------------------------------------------------

ThingsSpawnPeacefully:
  DEC <spawnTime
  BNE SpawnDone
  SET #64, <spawnTime
  LDA #KIND_GOLD
  BNE Spawn                     ; always

ThingsSpawn:
  DEC <spawnTime
  BNE SpawnDone
  LDX <night
  SET NightPause,x, <spawnTime
  JSR Random
  AND #15
  TAX
  LDA Lots,x

; A new thing of kind A, if there is room for one more.
Spawn:
  LDX #THINGS-1
.search:
  LDY kind,x
  BEQ .found
  DEX
  BPL .search
  RTS
.found:
  STA kind,x
  TAY                           ; the kind
  JSR Random
  STA thingTime,x               ; so that not all sway alike
  AND #$7F                      ; 0-127, and a second number 0-63: the middle is likelier than the edges
  STA <count
  JSR Random
  AND #$3F
  ADC <count
  ADC #24
  STA thingX,x
  STA swayX,x
  SET #SKY, thingY,x
  CPY #KIND_CROW
  BEQ SpawnCrow
  LDA <night
  CPY #KIND_RED
  TAY
  BCS .red
  SET GoldSpeedPart,y, speedPart,x
  SET GoldSpeed,y, speed,x
  RTS
.red:
  SET RedSpeedPart,y, speedPart,x
  SET RedSpeed,y, speed,x
SpawnDone:
  RTS

; The crow comes from the left or the right, along the ground or just above the fox's ears.
SpawnCrow:
  PLAY SOUND_CROW
  LDA thingTime,x               ; a number by chance
  LSR A
  BCS .low
  LDA #FLOOR - 26
  BNE .height                   ; always
.low:
  LDA #FLOOR - 2
.height:
  STA thingY,x
  LDA thingTime,x
  AND #2
  BEQ .fromLeft
  LDA #$FE
  LDY #240
  BNE .side                     ; always
.fromLeft:
  LDA #$01
  LDY #0
.side:
  STA speed,x                   ; $FE80 is -1.5, $0180 is 1.5
  TYA
  STA swayX,x
  SET #$80, speedPart,x
  RTS

; ---- moving -----------------------------------------------------------------------------------------

ThingsMove:
  LDX #THINGS-1
.next:
  LDA kind,x
  BEQ .done
  INC thingTime,x
  CMP #KIND_CROW
  BCC .lantern
  BEQ .crow
  JSR MoveRemains
  JMP .done
.crow:
  JSR MoveCrow
  JMP .done
.lantern:
  JSR MoveLantern
.done:
  DEX
  BPL .next
  RTS

MoveLantern:
  LDA thingYPart,x
  CLC
  ADC speedPart,x
  STA thingYPart,x
  LDA thingY,x
  ADC speed,x
  STA thingY,x
  CMP #LANDED
  BCS .lost
  LDA kind,x
  CMP #KIND_RED
  BEQ .straight
  LDA thingTime,x
  LSR A
  LSR A
  LSR A
  AND #15
  TAY
  LDA Sway,y
  CLC
  ADC thingX,x
  STA swayX,x
.straight:
  RTS
.lost:
  LDA #KIND_SMOKE
  JSR Become
  LDA <state
  CMP #STATE_PLAY
  BNE .peace                    ; on the title nobody minds
  PLAY SOUND_LOST
  LDA <flames
  BEQ .peace
  DEC <flames
.peace:
  RTS

MoveCrow:
  LDA thingYPart,x              ; the crow does not fall, so its parts serve the way across
  CLC
  ADC speedPart,x
  STA thingYPart,x
  LDA swayX,x
  ADC speed,x
  STA swayX,x
  CMP #244                      ; out on the right, or round the left edge
  BCC .done
  LDA #KIND_NONE
  STA kind,x
.done:
  RTS

; Sparks stay, smoke rises; both come to an end.
MoveRemains:
  TAY                           ; the kind
  CPY #KIND_SMOKE
  BNE .still
  LDA thingTime,x
  LSR A
  BCS .still
  DEC thingY,x
.still:
  LDA thingTime,x
  CMP KindEnd,y
  BNE .done
  LDA #KIND_NONE
  STA kind,x
.done:
  RTS

; Thing X becomes one of kind A, where it is.
Become:
  STA kind,x
  SET #0, thingTime,x
  RTS

; All lanterns and crows go up in sparks.
ThingsToSparks:
  LDX #THINGS-1
.next:
  LDA kind,x
  BEQ .done
  CMP #KIND_SPARK
  BCS .done
  LDA #KIND_SPARK
  JSR Become
.done:
  DEX
  BPL .next
  RTS

; For the end: sparks all over the sky.
ThingsFireworks:
  LDA <frames
  AND #15
  BNE .done
  LDA #KIND_SPARK
  JSR Spawn
  BMI .done                     ; no room
  SET #0, thingTime,x
  JSR Random
  AND #$3F
  ADC #104
  STA thingY,x
.done:
  RTS

; ---- touching ---------------------------------------------------------------------------------------

ThingsTouch:
  LDX #THINGS-1
.next:
  LDA kind,x
  BEQ .done
  CMP #KIND_SPARK
  BCS .done
  LDA swayX,x                   ; how far apart, to the side ...
  SEC
  SBC <foxX
  JSR Distance
  BCS .done
  LDA thingY,x                  ; ... and in height
  SEC
  SBC <foxY
  JSR Distance
  BCS .done
  LDA kind,x
  CMP #KIND_CROW
  BEQ .crow
  JSR CatchLantern
  JMP .done
.crow:
  JSR MeetCrow
.done:
  DEX
  BPL .next
  RTS

; A and the carry are what a subtraction has left. Carry clear: nearer than TOUCH.
Distance:
  BCS .positive
  EOR #$FF
  ADC #1                        ; the carry is clear: this is -A
.positive:
  CMP #TOUCH
  RTS

CatchLantern:
  LDA <lit
  CMP #LAMPS
  BCS .full
  INC <lit
.full:
  LDY #1                        ; gold: 10 points
  LDA kind,x
  CMP #KIND_RED
  BNE .gold
  LDY #3                        ; red: 30
.gold:
  TYA
  LDY <onFloor
  BNE .floor
  ASL A                         ; in the air: twice as much
.floor:
  JSR ScoreAdd
  LDA <onFloor
  BEQ .high
  PLAY SOUND_CATCH
  JMP .spark
.high:
  PLAY SOUND_HIGH_CATCH
.spark:
  LDA #KIND_SPARK
  JMP Become

MeetCrow:
  LDA <onFloor
  BNE FoxHurtByCrow
  LDA <foxSpeed+1
  BMI FoxHurtByCrow             ; on the way up
  LDA <foxY
  CLC
  ADC #4
  CMP thingY,x
  BCS FoxHurtByCrow             ; not from above
  LDA #10                       ; 100 points
  JSR ScoreAdd
  PLAY SOUND_HIGH_CATCH
  LDA #KIND_SPARK
  JSR Become
  STX <thing
  LDA #LOW(BOUNCE)
  LDX #HIGH(BOUNCE)
  JSR FoxLeap
  LDX <thing
  RTS
FoxHurtByCrow:
  JMP FoxHurt

; ---- drawing ----------------------------------------------------------------------------------------

; The picture unit shows only eight sprites in one line and drops those that come later in the list. So
; every second frame the things are drawn in the opposite order: what is dropped flickers instead of
; vanishing.
ThingsDraw:
  SET #0, <thing
.next:
  LDA <frames
  LSR A
  LDA <thing
  BCC .order
  EOR #THINGS-1                 ; 0 1 2 ... becomes 7 6 5 ...
.order:
  TAX
  JSR DrawThing
  INC <thing
  LDA <thing
  CMP #THINGS
  BNE .next
  RTS

DrawThing:
  LDY kind,x
  BEQ .none
  SET swayX,x, <drawX
  SET thingY,x, <drawY
  SET KindPalette,y, <drawLook
  CPY #KIND_CROW
  BNE .tile
  LDA speed,x
  BMI .tile                     ; the crow is drawn as it flies to the left
  LDA #FLIP + PALETTE_CROW
  STA <drawLook
.tile:
  LDA thingTime,x
  AND KindBit,y
  BEQ .first
  LDA #2                        ; the second picture is two tiles on
.first:
  CLC
  ADC KindTile,y
  STA <drawTile
  JMP Draw16
.none:
  RTS
