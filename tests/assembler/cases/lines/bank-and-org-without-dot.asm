	bank 1
	org $A010
	db 1
