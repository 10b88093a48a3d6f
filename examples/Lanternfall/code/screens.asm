; The two screens. A screen is a list of items for DrawScreen (picture.asm; the macros are explained in
; macros.asm); later items cover earlier ones. Behind it stand 64 bytes that choose palettes: eight rows
; of eight, one byte for each 32 x 32 pixels, two bits for each quarter of it:
;
;   %ddccbbaa     aa upper left, bb upper right, cc lower left, dd lower right
;
; Palettes: 0 letters and sky, 1 hills and grass, 2 houses and lanterns, 3 moon, gate and title.

; Places that the program writes to later.
SCORE_AT  = SCREEN_RIGHT + 2 * 32 + 2
NIGHT_AT  = SCREEN_RIGHT + 2 * 32 + 19
FLAMES_AT = SCREEN_RIGHT + 2 * 32 + 27
LAMPS_AT  = SCREEN_RIGHT + 4 * 32 + 2
BEST_AT   = SCREEN_LEFT + 2 * 32 + 17

; What both screens have: they lie side by side and must go on from one to the other.
COUNTRY .macro
  FILL    0, 15, 32, 1, TILE_DUSK
  FILL    0, 16, 32, 1, TILE_DUSK + 1
  FILL    0, 17, 32, 1, TILE_DUSK + 2
  FILL    0, 18, 32, 1, TILE_NIGHT
  STAMPS  0, 19, 8, 2, TILE_HILLS, 4
  STAMPS  0, 21, 4, 1, TILE_WOOD, 8
  STAMPS  0, 26, 4, 2, TILE_GRASS, 8
  STAMPS  0, 28, 4, 1, TILE_EARTH, 8
  STAMPS  0, 29, 4, 1, TILE_EARTH, 8
  .endm

TitleScreen:
  COUNTRY
  STAMPS  0, 4, 2, 2, TILE_LAMP + 2, 16
  STAMP   5, 8, 2, 2, TILE_L
  STAMP   7, 8, 2, 2, TILE_A
  STAMP   9, 8, 2, 2, TILE_N
  STAMP  11, 8, 2, 2, TILE_T
  STAMP  13, 8, 2, 2, TILE_E
  STAMP  15, 8, 2, 2, TILE_R
  STAMP  17, 8, 2, 2, TILE_N
  STAMP  19, 8, 2, 2, TILE_F
  STAMP  21, 8, 2, 2, TILE_A
  STAMP  23, 8, 2, 2, TILE_L
  STAMP  25, 8, 2, 2, TILE_L
  STAMP   3, 7, 1, 1, TILE_STAR
  STAMP  29, 11, 1, 1, TILE_STAR
  STAMP  28, 7, 1, 1, TILE_STAR + 1
  STAMP   6, 12, 1, 1, TILE_STAR + 2
  STAMP  26, 13, 1, 1, TILE_STAR + 3
  STAMP   2, 13, 1, 1, TILE_STAR + 1
  STAMP   0, 22, 4, 4, TILE_HOUSE
  STAMP   8, 22, 4, 4, TILE_GATE
  STAMP  20, 22, 4, 4, TILE_HOUSE
  STAMP  24, 22, 4, 4, TILE_STALL
  WRITE  12, 2, "BEST 00000"
  WRITE  10, 13, "PRESS  START"
  .db DRAW_END
  .db $00,$00,$00,$00,$00,$00,$00,$00
  .db $0A,$0A,$0A,$0A,$0A,$0A,$0A,$0A
  .db $0F,$0F,$0F,$0F,$0F,$0F,$0F,$0F
  .db $00,$00,$00,$00,$00,$00,$00,$00
  .db $50,$50,$50,$50,$50,$50,$50,$50
  .db $A5,$55,$F5,$55,$55,$A5,$A5,$55
  .db $5A,$55,$5F,$55,$55,$5A,$5A,$55
  .db $55,$55,$55,$55,$55,$55,$55,$55

VillageScreen:
  COUNTRY
  STAMPS  2, 4, 2, 2, TILE_LAMP, LAMPS
  STAMP  26, 8, 4, 4, TILE_MOON
  STAMP   4, 8, 1, 1, TILE_STAR
  STAMP   2, 11, 1, 1, TILE_STAR + 3
  STAMP  11, 7, 1, 1, TILE_STAR + 2
  STAMP  17, 9, 1, 1, TILE_STAR + 1
  STAMP  23, 14, 1, 1, TILE_STAR
  STAMP  29, 7, 1, 1, TILE_STAR + 1
  STAMP   7, 13, 1, 1, TILE_STAR + 1
  STAMP  30, 13, 1, 1, TILE_STAR + 2
  STAMP   0, 22, 4, 4, TILE_STALL
  STAMP   8, 22, 4, 4, TILE_HOUSE
  STAMP  20, 22, 4, 4, TILE_STALL
  STAMP  28, 22, 4, 4, TILE_HOUSE
  STAMPS 27, 2, 1, 1, TILE_FLAME + 1, FLAMES
  WRITE   2, 2, "00000"
  WRITE  13, 2, "NIGHT 1"
  .db DRAW_END
  .db $00,$00,$00,$00,$00,$00,$A0,$A0
  .db $0A,$0A,$0A,$0A,$0A,$0A,$0A,$0A
  .db $00,$00,$00,$00,$00,$00,$CC,$33
  .db $00,$00,$00,$00,$00,$00,$00,$00
  .db $50,$50,$50,$50,$50,$50,$50,$50
  .db $A5,$55,$A5,$55,$55,$A5,$55,$A5
  .db $5A,$55,$5A,$55,$55,$5A,$55,$5A
  .db $55,$55,$55,$55,$55,$55,$55,$55
