	.rsset $FFFE
first	.rs 2
second	.rs 1
