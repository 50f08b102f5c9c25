#pragma once

/// Prepares the process. Must be the first call of `main`, before the application object exists.
///
/// Sets the file creation mask to the owner alone, fixes the name of the patients' folder, and unsets a TMPDIR that
/// does not exist. On Linux also sets the text resolution, the window system and the network poll interval, unless the
/// environment has them.
void prepareProcess();
