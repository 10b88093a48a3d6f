; Variables: names for memory. `.rs` counts on from where `.rsset` began and emits nothing.

; ---- zero page: short and fast, written with a < before the name ------------------------------------

  .rsset $0000
source      .rs 2               ; where bytes are being read from
cell        .rs 2               ; where on the screen they go
width       .rs 1
height      .rs 1
tile        .rs 1
times       .rs 1
count       .rs 1

frames      .rs 1               ; one more every frame
frameReady  .rs 1               ; 1: the round is done and waits to be shown
control     .rs 1               ; what goes to PPU_CTRL and ...
scroll      .rs 1               ; ... PPU_SCROLL at the end of the frame
queueEnd    .rs 1               ; bytes in `queue`
queueCount  .rs 1               ; place of the count of the entry that is being made
queueX      .rs 1
spriteEnd   .rs 1               ; bytes in SPRITES

pad         .rs 1
padBefore   .rs 1
pressed     .rs 1
seed        .rs 1

state       .rs 1               ; one of the STATE_ numbers of game.asm
stateTime   .rs 1               ; frames in this state, up to 255
target      .rs 2               ; where a jump table leads

night       .rs 1               ; 0, 1, 2
lit         .rs 1               ; lanterns caught tonight
litShown    .rs 1               ; lanterns that shine on the screen: follows `lit`
flames      .rs 1
flamesShown .rs 1
scoreShown  .rs 1               ; 0: the score has changed and must be written again
points      .rs 1

foxX        .rs 1
foxY        .rs 1
foxYPart    .rs 1               ; 1/256 pixels
foxSpeed    .rs 2               ; up and down: parts, whole pixels
foxFlip     .rs 1
foxRuns     .rs 1
foxSpared   .rs 1
onFloor     .rs 1

thing       .rs 1               ; the thing whose turn it is
spawnTime   .rs 1
drawX       .rs 1
drawY       .rs 1
drawTile    .rs 1
drawLook    .rs 1

songAt      .rs 2               ; where sound.asm reads
soundMask   .rs 1
voice       .rs 1
stepControl .rs 1
stepLow     .rs 1
stepHigh    .rs 1
keepX       .rs 1
keepY       .rs 1

; ---- pages of their own -----------------------------------------------------------------------------

SPRITES     = $0200

  .rsset $0300
queue       .rs 128             ; bytes for the screen: count, address high, low, bytes ...; 0 ends

; Up to eight things at a time: lanterns, the crow, sparks, smoke. Thing number x has its kind in kind,x.
THINGS      = 8
  .rsset $0400
kind        .rs THINGS
thingX      .rs THINGS          ; where it began ...
swayX       .rs THINGS          ; ... and where it is
thingY      .rs THINGS
thingYPart  .rs THINGS
thingTime   .rs THINGS
speedPart   .rs THINGS
speed       .rs THINGS

DIGITS      = 5
score       .rs DIGITS          ; one digit a byte, highest first
best        .rs DIGITS

VOICES      = 4
voiceLow    .rs VOICES          ; where the music of each voice goes on
voiceHigh   .rs VOICES          ; 0: silent
voiceWait   .rs VOICES          ; frames until its next note
voiceLength .rs VOICES          ; frames a note lasts
voiceNote   .rs VOICES
voiceAge    .rs VOICES          ; frames since the note began

effectLow   .rs 2               ; sound effects: one on the second pulse voice, one on the noise
effectHigh  .rs 2               ; 0: none
effectWait  .rs 2
