choose .macro
	.if \1
	\2
	.else
	\3
	.endif
	.endm
	choose 1,inx,iny
	choose 0,inx,iny
