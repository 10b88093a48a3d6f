	.org $8000
here: lda #here
