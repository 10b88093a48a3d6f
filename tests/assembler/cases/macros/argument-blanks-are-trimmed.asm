say .macro
	.db "\1","\2"
	.endm
	say   ab  ,  cd  
