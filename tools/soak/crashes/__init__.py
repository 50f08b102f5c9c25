"""The program killed at random moments, again and again, in one home after another."""
