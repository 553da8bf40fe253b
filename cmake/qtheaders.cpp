// Nothing: the libraries of this file exist for their precompiled headers.
