#pragma once

/// Prepares the process itself; the first call of `main`, before any application object exists.
///
/// Files and folders made from then on belong to their owner alone. On Linux it also asks for the text resolution
/// that the documents are drawn for and for a window system in which a window can be placed, unless the user chose
/// them in the environment.
void prepareProcess();
