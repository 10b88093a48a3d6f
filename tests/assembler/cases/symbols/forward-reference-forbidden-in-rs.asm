var .rs later
later = 1
