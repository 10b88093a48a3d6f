SIZEOF(known)
