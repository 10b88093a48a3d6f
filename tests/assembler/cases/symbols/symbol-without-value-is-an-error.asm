ONE =
