"""A year in the tray, and what to hold it against."""
