PPU = $2000
start:
	lda 5
	cpx %00001000
	cmp 'A'
	lda LOW(start)
	and $0F
	lda PPU
	lda $2002
	lda <5
	sta 5
	lda #5
