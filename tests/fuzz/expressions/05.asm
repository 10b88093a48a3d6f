BANK(known) + PAGE(known)
