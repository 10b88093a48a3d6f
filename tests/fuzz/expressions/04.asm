LOW(known) + HIGH(known)
