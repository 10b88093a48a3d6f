; The notes: names for songs.asm, and for each what the sound chip must count to. A pulse voice sounds at
;   1789773 / (16 * (period + 1)) Hz,
; the triangle an octave lower. An s is a sharp: Fs4 is F sharp 4. A4 is 440 Hz.

REST = 0
C2  = 1
Cs2 = 2
D2  = 3
Ds2 = 4
E2  = 5
F2  = 6
Fs2 = 7
G2  = 8
Gs2 = 9
A2  = 10
As2 = 11
B2  = 12

C3  = 13
Cs3 = 14
D3  = 15
Ds3 = 16
E3  = 17
F3  = 18
Fs3 = 19
G3  = 20
Gs3 = 21
A3  = 22
As3 = 23
B3  = 24

C4  = 25
Cs4 = 26
D4  = 27
Ds4 = 28
E4  = 29
F4  = 30
Fs4 = 31
G4  = 32
Gs4 = 33
A4  = 34
As4 = 35
B4  = 36

C5  = 37
Cs5 = 38
D5  = 39
Ds5 = 40
E5  = 41
F5  = 42
Fs5 = 43
G5  = 44
Gs5 = 45
A5  = 46
As5 = 47
B5  = 48

C6  = 49
Cs6 = 50
D6  = 51
Ds6 = 52
E6  = 53
F6  = 54
Fs6 = 55
G6  = 56
Gs6 = 57
A6  = 58
As6 = 59
B6  = 60

PeriodLow:                     ; [REST], then an octave a line
  .db 0
  .db $AD,$4D,$F3,$9D,$4C,$00,$B8,$74,$34,$F8,$BF,$89
  .db $56,$26,$F9,$CE,$A6,$80,$5C,$3A,$1A,$FB,$DF,$C4
  .db $AB,$93,$7C,$67,$52,$3F,$2D,$1C,$0C,$FD,$EF,$E1
  .db $D5,$C9,$BD,$B3,$A9,$9F,$96,$8E,$86,$7E,$77,$70
  .db $6A,$64,$5E,$59,$54,$4F,$4B,$46,$42,$3F,$3B,$38

PeriodHigh:
  .db 0
  .db $06,$06,$05,$05,$05,$05,$04,$04,$04,$03,$03,$03
  .db $03,$03,$02,$02,$02,$02,$02,$02,$02,$01,$01,$01
  .db $01,$01,$01,$01,$01,$01,$01,$01,$01,$00,$00,$00
  .db $00,$00,$00,$00,$00,$00,$00,$00,$00,$00,$00,$00
  .db $00,$00,$00,$00,$00,$00,$00,$00,$00,$00,$00,$00
