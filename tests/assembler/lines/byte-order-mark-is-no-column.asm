	bogus
