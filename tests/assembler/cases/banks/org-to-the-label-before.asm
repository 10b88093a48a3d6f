	.org $8004
here: .db 1
	.org here+$10
	.db 2
