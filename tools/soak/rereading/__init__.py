"""Another process takes the file right after a commit of the program."""
