call .macro
	lda \1
	.db \#
	.endm
	call [$10,x]
	call [$10],y
