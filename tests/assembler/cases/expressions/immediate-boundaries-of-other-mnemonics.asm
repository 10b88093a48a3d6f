	ldx #$7F
	ldy #$80
	cpx #$FF
	adc #-1
	sbc #-256
