	.fail "this file is not assembled"
