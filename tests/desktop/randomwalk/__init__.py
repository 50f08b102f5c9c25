"""Uses the program at random and compares it with a model of what it must store and show."""
