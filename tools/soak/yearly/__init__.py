"""A year in the tray, and the rules to compare it with."""
