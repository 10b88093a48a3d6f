	.fail "not for this board"
