foo = 1
Foo = 2
FOO = 3
	.db foo,Foo,FOO
