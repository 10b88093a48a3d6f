	jmp end
end: