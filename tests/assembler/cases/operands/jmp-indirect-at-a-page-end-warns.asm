	jmp [$02FF]
	jmp ($02FF)
	jmp [$02FE]
