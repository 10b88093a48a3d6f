	jmp [vector]
vector = $03FF
