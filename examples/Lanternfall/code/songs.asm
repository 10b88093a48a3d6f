; The music and the sound effects: lists that sound.asm reads.

SONG_NONE  = 0
SONG_TITLE = 1
SONG_PLAY  = 2
SONG_LOST  = 3
SONG_WON   = 4

Songs:                          ; lead, second voice, bass, drums
  .dw Silence,   Silence,     Silence,   Silence
  .dw TitleLead, TitleSecond, TitleBass, Silence
  .dw PlayLead,  PlaySecond,  PlayBass,  PlayDrums
  .dw LostLead,  Silence,     LostBass,  Silence
  .dw WonLead,   WonSecond,   WonBass,   WonDrums

Silence:
  .db STOP

; ---- the title: slow, under the moon ----------------------------------------------------------------

S8 = NOTE + 16                  ; an eighth of a slow bar lasts 16 frames
S4 = NOTE + 32
S2 = NOTE + 64

TitleLead:
  .db S2, E5, S4, D5, S8, C5, D5
  .db S2, A4, S4, REST, S8, G4, A4
  .db S2, C5, S4, D5, S8, E5, D5
  .db S2, E5, REST
  .db S2, G5, S4, E5, S8, D5, E5
  .db S2, C5, S4, A4, S8, G4, A4
  .db S4, C5, D5, S8, C5, A4, S4, G4
  .db S2, A4, REST
  .db LOOP
  .dw TitleLead

TitleSecond:
  .db S8
  .db A3, C4, E4, A4, E4, C4, A3, C4
  .db F3, A3, C4, F4, C4, A3, F3, A3
  .db A3, C4, E4, A4, E4, C4, A3, C4
  .db G3, B3, D4, G4, D4, B3, G3, B3
  .db C4, E4, G4, C5, G4, E4, C4, E4
  .db F3, A3, C4, F4, C4, A3, F3, A3
  .db D3, A3, D4, F4, E3, B3, E4, Gs4
  .db A3, C4, E4, A4, E4, C4, A3, REST
  .db LOOP
  .dw TitleSecond

TitleBass:
  .db S2, A3, A3, F3, F3, A3, A3, G3, G3, C4, C4, F3, F3, D3, E3, A3, A3
  .db LOOP
  .dw TitleBass

; ---- the nights: a dance ----------------------------------------------------------------------------

L8 = NOTE + 9
L4 = NOTE + 18
L2 = NOTE + 36

PlayLead:
  .db L4, A4, L8, C5, D5, L4, E5, L8, D5, C5
  .db L4, A4, L8, G4, A4, L2, E4
  .db L4, A4, L8, C5, D5, L4, E5, L8, G5, E5
  .db L2, D5, L4, REST, L8, E5, D5
  .db L4, C5, L8, D5, C5, L4, A4, L8, G4, A4
  .db L4, C5, D5, L2, E5
  .db L8, G5, E5, D5, C5, L4, D5, L8, C5, G4
  .db L2, A4, L4, A4, REST
  ; and a second part, higher
  .db L4, A5, L8, G5, E5, L4, G5, L8, E5, D5
  .db L4, E5, L8, D5, C5, L2, A4
  .db L8, C5, D5, E5, G5, L4, A5, L8, G5, E5
  .db L2, D5, L4, E5, G5
  .db L4, A5, L8, G5, E5, L4, D5, L8, E5, G5
  .db L4, E5, L8, D5, C5, L2, D5
  .db L8, C5, D5, C5, A4, G4, A4, C5, D5
  .db L2, A4, L4, A4, REST
  .db LOOP
  .dw PlayLead

PlaySecond:
  .db L8
  .db REST, C4, E4, C4, REST, C4, E4, C4
  .db REST, C4, E4, C4, REST, C4, E4, C4
  .db REST, A3, C4, A3, REST, A3, C4, A3
  .db REST, B3, D4, B3, REST, B3, D4, B3
  .db REST, A3, C4, A3, REST, A3, C4, A3
  .db REST, G3, C4, G3, REST, G3, C4, G3
  .db REST, B3, D4, B3, REST, B3, D4, B3
  .db REST, C4, E4, C4, REST, C4, E4, C4
  .db LOOP
  .dw PlaySecond

PlayBass:
  .db L4
  .db A3, E3, A3, E3,  A3, E3, A3, B3
  .db F3, C4, F3, C4,  G3, D4, G3, D4
  .db F3, C4, F3, C4,  C4, G3, C4, G3
  .db G3, D4, G3, D4,  A3, E3, A3, L8, A3, G3
  .db LOOP
  .dw PlayBass

PlayDrums:
  .db L8, KICK, HAT, SNARE, HAT, KICK, KICK, SNARE, HAT
  .db LOOP
  .dw PlayDrums

; ---- the ends ---------------------------------------------------------------------------------------

LostLead:
  .db L4, E5, D5, C5, A4, L8, G4, A4, L2, E4, STOP
LostBass:
  .db L4, A3, G3, F3, D3, E3, L2, A2, STOP

WonLead:
  .db L8, A4, C5, E5, A5, L4, G5, L8, E5, G5, L2, A5, L8, E5, G5, L2, A5, STOP
WonSecond:
  .db L8, C4, E4, A4, C5, L4, B4, L8, G4, B4, L2, C5, L8, B4, B4, L2, C5, STOP
WonBass:
  .db L4, A3, A3, G3, G3, L2, A3, L4, G3, L2, A3, STOP
WonDrums:
  .db L8, KICK, HAT, KICK, HAT, SNARE, HAT, SNARE, SNARE, L2, KICK, L8, SNARE, SNARE, L2, KICK, STOP

; ---- sound effects ----------------------------------------------------------------------------------
; Steps of four bytes: wave and volume, period low, period high, frames. A 0 ends.

SOUND_JUMP       = 0
SOUND_CATCH      = 1
SOUND_HIGH_CATCH = 2
SOUND_LOST       = 3
SOUND_HURT       = 4
SOUND_CROW       = 5
SOUND_START      = 6

EffectVoice: .db 0, 0, 0, 0, 1, 1, 0
Effects:     .dw Jump, Catch, HighCatch, LampLost, Hurt, Caw, Start

Jump:
  .db $76,$80,$01,2, $76,$50,$01,2, $75,$28,$01,2, $74,$00,$01,2, $73,$E0,$00,2, $72,$C8,$00,2, 0
Catch:
  .db $B9,$A9,$00,4, $B9,$7E,$00,4, $B6,$7E,$00,4, $B3,$7E,$00,4, 0
HighCatch:
  .db $B9,$7E,$00,4, $B9,$6A,$00,4, $B9,$54,$00,4, $B6,$54,$00,4, $B3,$54,$00,4, 0
LampLost:
  .db $7A,$60,$01,4, $79,$C0,$01,4, $78,$20,$02,4, $77,$A0,$02,4, $76,$40,$03,6, $73,$40,$03,6, 0
Hurt:
  .db $3C,$0A,$00,3, $3B,$0C,$00,3, $39,$0D,$00,4, $36,$0E,$00,5, $33,$0F,$00,6, 0
Caw:
  .db $36,$84,$00,4, $37,$85,$00,5, $30,$85,$00,4, $36,$84,$00,4, $37,$86,$00,7, 0
Start:
  .db $B9,$FD,$00,5, $B9,$D5,$00,5, $B9,$A9,$00,5, $B9,$7E,$00,8, $B6,$7E,$00,6, $B3,$7E,$00,6, 0
