"""Another process locks the file right after a commit of the program."""
