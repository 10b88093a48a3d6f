* nothing
