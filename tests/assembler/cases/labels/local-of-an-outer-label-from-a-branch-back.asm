main: ldx #3
.l: dex
	bne .l
