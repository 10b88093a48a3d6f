; The states of the game. Each is a routine that is called once a frame until it chooses another state.

STATE_TITLE      = 0
STATE_TO_VILLAGE = 1            ; the picture moves over to the right screen
STATE_PLAY       = 2
STATE_PAUSE      = 3
STATE_NIGHT_WON  = 4
STATE_LOST       = 5
STATE_WON        = 6
STATE_TO_TITLE   = 7

StateTable:
  .dw Title, ToVillage, Play, Pause, NightWon, Lost, Won, ToTitle

; A jump table: the address of the routine goes to `target`, and JMP [target] goes there. The routine's
; RTS leads back to whoever called RunState.
RunState:
  INC <stateTime
  BNE .go
  DEC <stateTime                ; it stops at 255
.go:
  LDA <state
  ASL A                         ; addresses are two bytes
  TAX
  SET StateTable,x, <target
  SET StateTable+1,x, <target+1
  JMP [target]

; A is the new state.
GoTo:
  STA <state
  SET #0, <stateTime
  RTS

; ---- title ------------------------------------------------------------------------------------------

; Sets up the title; it is on the screen already, or coming.
ShowTitle:
  JSR ThingsClear
  JSR FoxStart
  SET #30, <spawnTime
  SONG SONG_TITLE
  LDA #STATE_TITLE
  JMP GoTo

Title:
  JSR ThingsSpawnPeacefully     ; lanterns fall here too, but nobody minds
  JSR ThingsMove
  JSR FoxDraw
  JSR ThingsDraw
  JSR BlinkStart
  IF_PRESSED BUTTON_START, .start
  RTS
.start:
  POINT source, StartOn         ; not to leave with the words switched off
  JSR QueueMessage
  JSR NewGame
  PLAY SOUND_START
  SONG SONG_NONE
  LDA #STATE_TO_VILLAGE
  JMP GoTo

; PRESS START on the title goes on and off, every 32 frames.
BlinkStart:
  LDA <frames
  AND #%00011111
  BNE .done
  LDA <frames
  AND #%00100000
  BEQ .off
  POINT source, StartOn
  JMP QueueMessage
.off:
  POINT source, StartOff
  JMP QueueMessage
.done:
  RTS

NewGame:
  LDA #0
  STA <night
  STA <lit
  STA <foxSpared
  LDX #DIGITS-1
.digit:
  STA score,x
  DEX
  BPL .digit
  STA <scoreShown
  SET #FLAMES, <flames
  JSR ThingsClear
  JMP FoxStart

; ---- from screen to screen --------------------------------------------------------------------------

; The picture unit sees both screens as one that is 512 pixels wide. `scroll` pushes it to the left; when
; it comes round after 256, the screen on the right takes over.
ToVillage:
  JSR FoxTravels
  LDA <scroll
  CLC
  ADC #4
  STA <scroll
  BNE .moving
  LDA <control
  ORA #CTRL_SCREEN
  STA <control
  JMP StartNight
.moving:
  RTS

ToTitle:
  SET #FLIP, <foxFlip
  JSR FoxTravels
  LDA <scroll
  BNE .moving
  LDA <control
  AND #$FF - CTRL_SCREEN
  STA <control
.moving:
  LDA <scroll
  SEC
  SBC #4
  STA <scroll
  BNE .done
  JMP ShowTitle
.done:
  RTS

; The fox runs where it is while the picture moves.
FoxTravels:
  SET #1, <foxRuns
  STA <onFloor
  SET #FLOOR, <foxY
  SET #0, <foxSpared
  JMP FoxDraw

; ---- play -------------------------------------------------------------------------------------------

StartNight:
  SET #0, <lit                  ; the garland goes out, lantern by lantern
  JSR ThingsClear
  SET #100, <spawnTime          ; time to read which night it is
  JSR QueueNight
  POINT source, NightMessage
  JSR QueueMessage
  SONG SONG_PLAY
  LDA #STATE_PLAY
  JMP GoTo

Play:
  IF_PRESSED BUTTON_START, .pause
  LDA <stateTime
  CMP #90
  BNE .noMessage
  JSR ClearMessage
.noMessage:
  JSR FoxMove
  JSR ThingsSpawn
  JSR ThingsMove
  JSR ThingsTouch
  JSR FoxDraw
  JSR ThingsDraw
  LDA <flames
  BEQ .lost
  LDA <lit
  CMP #LAMPS
  BCS .won
  RTS

.pause:
  POINT source, PauseMessage
  JSR QueueMessage
  SET #1, <soundMask
  LDA #STATE_PAUSE
  STA <state                    ; not GoTo: stateTime is to go on where it was
  JMP DrawStill
.lost:
  POINT source, LostMessage
  JSR QueueMessage
  JSR KeepBest
  SONG SONG_LOST
  LDA #STATE_LOST
  JMP GoTo
.won:
  JSR ThingsToSparks
  SONG SONG_WON
  INC <night
  LDA <night
  CMP #NIGHTS
  BEQ .festival
  POINT source, ClearedMessage
  JSR QueueMessage
  LDA #STATE_NIGHT_WON
  JMP GoTo
.festival:
  DEC <night                    ; there is no fourth
  POINT source, WonMessage
  JSR QueueMessage
  LDA #50                       ; five hundred points for each flame that is left
  LDX <flames
.bonus:
  JSR ScoreAdd
  DEX
  BNE .bonus
  JSR KeepBest
  LDA #STATE_WON
  JMP GoTo

Pause:
  LDA #100
  STA <stateTime                ; the night's message has made way for ours
  IF_PRESSED BUTTON_START, .on
  JMP DrawStill
.on:
  JSR ClearMessage
  SET #0, <soundMask
  LDA #STATE_PLAY
  STA <state
DrawStill:
  JSR FoxDraw
  JMP ThingsDraw

; ---- the ends ---------------------------------------------------------------------------------------

; All lanterns are lit: the fox leaps for joy, then the next night comes with one flame more.
NightWon:
  JSR FoxCheer
  JSR ThingsMove
  JSR FoxDraw
  JSR ThingsDraw
  LDA <stateTime
  CMP #200
  BNE .done
  LDA <flames
  CMP #FLAMES
  BCS .full
  INC <flames
.full:
  JMP StartNight
.done:
  RTS

Lost:
  JSR ThingsMove
  JSR FoxFall
  JSR FoxDrawBeaten
  JSR ThingsDraw
  JMP WaitForStart

Won:
  JSR FoxCheer
  JSR ThingsFireworks
  JSR ThingsMove
  JSR FoxDraw
  JSR ThingsDraw

WaitForStart:
  LDA <stateTime
  CMP #60                       ; nobody shall skip the end by running on
  BCC .done
  BNE .pad
  POINT source, AgainOn
  JSR QueueMessage
.pad:
  IF_PRESSED BUTTON_START, .leave
.done:
  RTS
.leave:
  JSR ClearMessage
  POINT source, AgainOff
  JSR QueueMessage
  SET #0, <lit
  JSR ThingsClear
  SONG SONG_NONE
  PLAY SOUND_START
  LDA #STATE_TO_TITLE
  JMP GoTo

; ---- messages: number of tiles, place, tiles (see QueueMessage) --------------------------------------
; Those of one place are of one length, so that each wipes out the one before it.

MESSAGE_X = 8
MESSAGE_Y = 11

ClearMessage:
  POINT source, NoMessage
  JMP QueueMessage

NightMessage:   MESSAGE MESSAGE_X, MESSAGE_Y, " LIGHT THEM ALL ", 16
PauseMessage:   MESSAGE MESSAGE_X, MESSAGE_Y, "     PAUSE      ", 16
LostMessage:    MESSAGE MESSAGE_X, MESSAGE_Y, "   GAME  OVER   ", 16
ClearedMessage: MESSAGE MESSAGE_X, MESSAGE_Y, "ALL LANTERNS LIT", 16
WonMessage:     MESSAGE MESSAGE_X, MESSAGE_Y, "FESTIVAL SAVED! ", 16
NoMessage:      MESSAGE MESSAGE_X, MESSAGE_Y, "                ", 16

AgainOn:        MESSAGE MESSAGE_X + 2, MESSAGE_Y + 2, "PRESS  START", 12
AgainOff:       MESSAGE MESSAGE_X + 2, MESSAGE_Y + 2, "            ", 12

START_AT = SCREEN_LEFT + 13 * 32 + 10
StartOn:
  .db 12, HIGH(START_AT), LOW(START_AT), "PRESS  START"
StartOff:
  .db 12, HIGH(START_AT), LOW(START_AT), "            "
