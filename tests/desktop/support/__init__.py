"""The support of the desktop tests: a desktop for each test process, and functions that use and read the windows."""
