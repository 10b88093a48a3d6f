	.org $8000
table: .db 1
	lda (table),y
