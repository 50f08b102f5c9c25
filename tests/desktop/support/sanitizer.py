"""The environment of a program that is built with AddressSanitizer."""

import os

# Windows and tray live until the process ends and are not leaks. libfaketime has to be loaded before the sanitizer's runtime.
# Without leak detection the fast unwinder suffices: the slow one deadlocks on a lock that the shader compiler of the graphics
# library holds while it allocates memory.
OPTIONS = ":".join(filter(None, ["detect_leaks=0", "verify_asan_link_order=0", os.environ.get("ASAN_OPTIONS"),
                                 "fast_unwind_on_malloc=1"]))
