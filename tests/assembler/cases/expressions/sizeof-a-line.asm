table: .db 1,2,3
	.db SIZEOF(table),SIZEOF(words),SIZEOF(code)
words: .dw 1,2
code: lda #1
