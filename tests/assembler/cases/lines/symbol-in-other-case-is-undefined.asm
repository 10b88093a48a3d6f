foo = 1
	.db Foo
