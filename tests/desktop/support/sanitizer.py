"""How the program runs when it is built with the address sanitizer."""

import os

# Windows and tray live until the process ends on purpose. The library of the moved clock has to be loaded before the
# sanitizer's. Where leaks are not looked for, stacks may be taken the quick way: the thorough one waits for ever on the
# lock that the compiler in the graphics library holds while it asks for memory.
OPTIONS = ":".join(filter(None, ["detect_leaks=0", "verify_asan_link_order=0", os.environ.get("ASAN_OPTIONS"),
                                 "fast_unwind_on_malloc=1"]))
