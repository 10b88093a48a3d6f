; Music and sound effects.
;
; Four voices play: two pulse waves (0 leads, 1 accompanies), the triangle (2, the bass) and noise (3, the
; drums). Each reads its own list of bytes in songs.asm:
;
;   a number below $80                a note, or REST
;   NOTE + n                          from here on notes last n frames
;   LOOP and an address               go on there
;   STOP                              the voice falls silent
;
; Sound effects take the second pulse voice, or the noise, away from the music while they last.

NOTE = $80
STOP = $FE
LOOP = $FF

KICK  = 1                       ; the notes of the drums
SNARE = 2
HAT   = 3

SoundStart:
  SET #$0F, APU_STATUS          ; all four voices on
  SET #$08, APU+1               ; no sweeps
  STA APU+5
  RTS

; Starts song A.
SongStart:
  ASL A
  ASL A
  ASL A                         ; eight bytes a song
  TAY
  LDX #0
.voice:
  SET #0, voiceHigh,x           ; silent while it is set up: FrameDone may come at any time
  STA voiceNote,x
  SET Songs,y, voiceLow,x
  SET #1, voiceWait,x           ; the first note comes in the next frame
  SET Songs+1,y, voiceHigh,x
  INY
  INY
  INX
  CPX #VOICES
  BNE .voice
  RTS

; Starts sound effect A. X and Y are kept.
SoundPlay:
  STX <keepX
  STY <keepY
  TAY
  LDX EffectVoice,y             ; 0: pulse, 1: noise
  TYA
  ASL A
  TAY
  SET #0, effectHigh,x
  SET Effects,y, effectLow,x
  SET #1, effectWait,x
  SET Effects+1,y, effectHigh,x
  LDX <keepX
  LDY <keepY
  RTS

; Once a frame, from FrameDone.
SoundFrame:
  LDA <soundMask
  BNE .silence
  LDX #0
.voice:
  STX <voice
  LDA voiceHigh,x
  BEQ .out
  INC voiceAge,x
  DEC voiceWait,x
  BNE .out
  JSR NextNote
.out:
  JSR VoiceOut
  LDX <voice
  INX
  CPX #VOICES
  BNE .voice

  LDX #1
.effect:
  LDA effectHigh,x
  BEQ .none
  DEC effectWait,x
  BNE .none
  JSR NextStep
.none:
  DEX
  BPL .effect
  RTS

.silence:                       ; the game pauses
  SET #$30, APU
  STA APU+4
  STA APU+12
  SET #$80, APU+8
  RTS

; The next note of voice X.
NextNote:
  SET voiceLow,x, <songAt
  SET voiceHigh,x, <songAt+1
.read:
  JSR SongByte
  BPL .note
  CMP #LOOP
  BEQ .loop
  CMP #STOP
  BEQ .stop
  AND #$7F
  STA voiceLength,x
  JMP .read
.loop:
  JSR SongByte
  PHA
  JSR SongByte
  STA <songAt+1
  PLA
  STA <songAt
  JMP .read
.stop:
  LDA #0
  STA voiceHigh,x
  STA voiceNote,x
  RTS
.note:
  STA voiceNote,x
  SET voiceLength,x, voiceWait,x
  SET #0, voiceAge,x
  SET <songAt, voiceLow,x
  SET <songAt+1, voiceHigh,x
  RTS

; The byte at `songAt`, in A; N is its bit 7.
SongByte:
  LDY #0
  LDA [songAt],y
  INC <songAt
  BNE .same
  INC <songAt+1
.same:
  CMP #0
  RTS

; What voice X sounds like in this frame.
VoiceOut:
  CPX #2
  BEQ .triangle
  BCS .noise
  CPX #1
  BNE .pulse
  LDA effectHigh
  BNE .done                     ; a sound effect has this voice
.pulse:
  LDA voiceNote,x
  BEQ .quiet
  LDA voiceAge,x                ; the longer ago, the softer
  LSR A
  CMP #16
  BCC .fades
  LDA #15
.fades:
  ORA PulseTable,x
  TAY
  LDA PulseVolume,y
.write:
  PHA
  TXA
  ASL A
  ASL A
  TAY                           ; four registers a voice
  PLA
  STA APU,y
  LDA voiceAge,x
  BNE .done                     ; the pitch is set once: each time makes a click
  LDA voiceNote,x
  TAX
  SET PeriodLow,x, APU+2,y
  SET PeriodHigh,x, APU+3,y
.done:
  RTS
.quiet:
  LDA #$30
  JMP .write

.triangle:                      ; it knows on and off only
  LDA voiceNote,x
  BEQ .off
  LDA voiceWait,x
  CMP #3                        ; a breath before the next note
  BCC .off
  LDA #$FF
  BNE .write                    ; always
.off:
  SET #$80, APU+8
  RTS

.noise:
  LDA effectHigh+1
  BNE .done
  LDY voiceNote,x
  LDA DrumVolume,y
  SEC
  SBC voiceAge,x
  BCS .loud
  LDA #0
.loud:
  ORA #$30
  STA APU+12
  LDA voiceAge,x
  BNE .done
  SET DrumPeriod,y, APU+14
  SET #0, APU+15
  RTS

; The next step of the effect on voice X (0: pulse, 1: noise): four bytes, for three registers and the time.
NextStep:
  SET effectLow,x, <songAt
  SET effectHigh,x, <songAt+1
  LDY #0
  LDA [songAt],y
  BEQ .over
  STA <stepControl
  INY
  SET [songAt],y, <stepLow
  INY
  SET [songAt],y, <stepHigh
  INY
  SET [songAt],y, effectWait,x
  LDY EffectRegister,x
  SET <stepControl, APU,y
  SET <stepLow, APU+2,y
  SET <stepHigh, APU+3,y
  LDA effectLow,x
  CLC
  ADC #4
  STA effectLow,x
  BCC .done
  INC effectHigh,x
.done:
  RTS
.over:
  STA effectHigh,x              ; A is 0
  LDY EffectRegister,x
  SET #$30, APU,y
  LDY EffectMusic,x             ; the music is back with its next note
  SET #REST, voiceNote,y
  RTS

EffectRegister: .db 4, 12
EffectMusic:    .db 1, 3

; How loud a pulse note is, every two frames, with the shape of its wave: the lead is round and loud, the
; other voice thin and short.
PulseTable: .db $00, $10
PulseVolume:
  .db $B9,$BA,$B9,$B8,$B7,$B6,$B6,$B5,$B5,$B4,$B4,$B4,$B3,$B3,$B3,$B2
  .db $76,$75,$74,$73,$72,$72,$71,$71,$71,$71,$70,$70,$70,$70,$70,$70

DrumPeriod: .db 0, $0D, $05, $01
DrumVolume: .db 0, 9, 8, 4
