#pragma once

// What happens before the application object is made.

// Files are found through the working directory: if it holds no "resources" and the program's own
// folder does, that becomes the working directory. executable: argv[0], or null.
void findResources(const char* executable);

// Makes a failed string connection a crash, in debug builds: the compiler can't check it.
void installStrictConnections();
