	.org $9FFF
	.db 1
end:
	.bank 1
	.dw end
