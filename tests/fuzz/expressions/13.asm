.local + other
