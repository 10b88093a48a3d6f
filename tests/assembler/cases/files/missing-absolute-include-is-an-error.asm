	.include "/nowhere/at/all.asm"
