	.org $9FFE
	beq end
end:
