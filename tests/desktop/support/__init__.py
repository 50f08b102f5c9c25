"""What the tests of the program in a real window stand on: a desktop of their own, and verbs for what a user does and sees."""
