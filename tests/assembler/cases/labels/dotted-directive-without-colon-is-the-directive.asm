main:
.db 1
.word 2
.list
.nolist
	.dw main
