	.error "choose a region"
