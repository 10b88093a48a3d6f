SPEED = 3
room: .ds 4
	.ds SIZEOF(SPEED)
	.ds SIZEOF(room)
same: .ds SIZEOF(same)
	.ds SIZEOF(after)
after: .ds 1
