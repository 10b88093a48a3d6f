	.org $8034
here: .db here
