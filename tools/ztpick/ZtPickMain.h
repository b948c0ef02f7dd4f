#ifndef ZTPICK_ZTPICKMAIN_H
#define ZTPICK_ZTPICKMAIN_H

// The whole of ztpick as a function, so that tests can run it without a process.

#include <string>
#include <vector>

// Runs ztpick with the arguments (without the program name). What it prints goes to *out and
// its messages to *err. Returns the exit status: 0 hit, 1 no hit, 2 bad option or unreadable
// input or output file.
int ZtPickMain(const std::vector<std::string>& args, std::string* out, std::string* err);

#endif
