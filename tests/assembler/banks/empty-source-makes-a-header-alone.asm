; nothing
