	.org $FFFF
	.db 1
end:
	.bank 1
	.dw end
