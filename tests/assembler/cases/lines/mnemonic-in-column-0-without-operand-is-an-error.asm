inc
