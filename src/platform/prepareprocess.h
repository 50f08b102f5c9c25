#pragma once

/// Prepares the process itself; the first call of `main`, before any application object exists.
///
/// Files and folders made from then on belong to their owner alone, the patients' folder has its name whatever the
/// executable is called, and a temporary folder that does not exist is forgotten. On Linux it also asks for the text
/// resolution that the documents are drawn for, for a window system in which a window can be placed, and to be left asleep while
/// the network does nothing, unless the user chose otherwise in the environment.
void prepareProcess();
