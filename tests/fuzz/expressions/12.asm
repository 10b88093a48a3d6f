#known - #$10
