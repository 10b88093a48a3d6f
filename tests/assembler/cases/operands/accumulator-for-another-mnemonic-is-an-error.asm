	inc a
