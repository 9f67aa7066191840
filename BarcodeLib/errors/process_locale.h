#pragma once

#include <string>

// The process locale is one setting for every thread of the host. The name that setlocale
// answers lives only until the next call of setlocale on any thread, so every call of ours goes
// through one lock and takes a copy of the name.

// The name of the current process locale; empty if the C library has none to give.
std::string process_locale_name();

// Sets the process locale; false, with nothing changed, when the C library refuses the name.
bool set_process_locale(const std::string& name);

// Sets the process locale and gives the name that was in force before, in one step under the
// lock; the name is empty if the C library has none to give.
std::string exchange_process_locale(const std::string& name);
