// Nothing: the library of this file exists for its precompiled headers.
