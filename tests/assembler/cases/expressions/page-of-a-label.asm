	.org $E000
start: .db PAGE(start),PAGE(later)
	.org $A010
later:
