"""Kills the program at random moments, in a series of home folders."""
