	.db "äöü",nowhere
