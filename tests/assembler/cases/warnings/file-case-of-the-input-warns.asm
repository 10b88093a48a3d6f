	.fail "not this one"
