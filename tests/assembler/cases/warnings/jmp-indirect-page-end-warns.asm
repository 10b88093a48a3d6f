vector = $02FF
	jmp [vector]
