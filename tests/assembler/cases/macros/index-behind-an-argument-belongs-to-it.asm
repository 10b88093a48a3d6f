SET .macro
	lda \1
	cmp \2
	sta \3
	.db \#
	.endm
	SET frames, x, frames + 1, x, temp
frames = $0310
temp = $0320
