two .macro
	.db \#
	.dw \1,\2
	.endm
	two 1,xpos
	two 2,y2
xpos = 7
y2 = 8
