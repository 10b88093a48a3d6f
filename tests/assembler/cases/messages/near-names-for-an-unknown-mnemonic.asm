	ldaa #1
