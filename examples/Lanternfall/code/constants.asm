; Names for the hardware and for the numbers of the game. Nothing here takes room in the image.

; ---- the picture unit -------------------------------------------------------------------------------

PPU_CTRL    = $2000
PPU_MASK    = $2001
PPU_STATUS  = $2002
OAM_ADDR    = $2003
PPU_SCROLL  = $2005
PPU_ADDR    = $2006
PPU_DATA    = $2007
OAM_DMA     = $4014

CTRL_NORMAL = %10001000         ; call FrameDone; sprites from the second half of the tiles
CTRL_SCREEN = %00000001         ; this bit chooses the screen on the right
MASK_ALL    = %00011110         ; background and sprites, up to the edges

SCREEN_LEFT  = $2000            ; the title
SCREEN_RIGHT = $2400            ; the village
COLOURS      = $3F00

; ---- the sound chip and the pads --------------------------------------------------------------------

APU         = $4000             ; four registers for each voice: pulse, pulse, triangle, noise
DMC_CONTROL = $4010
APU_STATUS  = $4015
PAD1        = $4016
APU_FRAME   = $4017

; ---- buttons ----------------------------------------------------------------------------------------

BUTTON_A     = %10000000
BUTTON_START = %00010000
BUTTON_LEFT  = %00000010
BUTTON_RIGHT = %00000001

; ---- tiles: a 16 x 16 sprite is tile, tile + 1, and the two below them, 16 numbers on ---------------

TILE_EMPTY  = $00
TILE_NIGHT  = $01
TILE_DUSK   = $02               ; three steps from black to blue
TILE_HILLS  = $08
TILE_STAR   = $10               ; four kinds
TILE_WOOD   = $60
TILE_FLAME  = $64               ; burning, and beside it out
TILE_LAMP   = $66               ; out, and beside it lit
TILE_GRASS  = $70
TILE_EARTH  = $80
TILE_MOON   = $90
TILE_HOUSE  = $94
TILE_STALL  = $98
TILE_GATE   = $9C
TILE_L      = $D0               ; the big letters of the title
TILE_A      = $D2
TILE_N      = $D4
TILE_T      = $D6
TILE_E      = $D8
TILE_R      = $DA
TILE_F      = $DC

FOX_STANDS  = $00
FOX_RUNS    = $02               ; and $04
FOX_JUMPS   = $06
FOX_BEATEN  = $08
LANTERN     = $0A               ; and $0C
CROW        = $20               ; and $22
SPARK       = $24               ; and $26
SMOKE       = $28               ; and $2A

; ---- sprite attributes ------------------------------------------------------------------------------

PALETTE_FOX  = 0
PALETTE_GOLD = 1
PALETTE_RED  = 2
PALETTE_CROW = 3
FLIP         = %01000000        ; left and right exchanged

; ---- the rules --------------------------------------------------------------------------------------

NIGHTS      = 3
LAMPS       = 14                ; lanterns of the garland: so many are to be caught in a night
FLAMES      = 3
FLOOR       = 193               ; y of the fox when it stands on the grass
LANDED      = 196               ; y at which a lantern is lost
SKY         = 40                ; y at which things appear: behind the garland
LEFT_EDGE   = 8
RIGHT_EDGE  = 232
RUN_SPEED   = 2
JUMP        = $10000 - $0400    ; 4 pixels a frame upwards: speeds are in 1/256 pixels, minus is up
BOUNCE      = $10000 - $0300
GRAVITY_UP  = $0026             ; while A is held on the way up
GRAVITY     = $0048
FALL_MOST   = $04               ; whole pixels a frame
TOUCH       = 13                ; things nearer than this touch
SPARED      = 90                ; frames for which the fox cannot be hurt again
OFFSCREEN   = $F8
