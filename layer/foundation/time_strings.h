#pragma once

#include <string>

// The local time by a strftime format, in a string of 256 characters padded with zeros; empty
// when strftime gives nothing.
std::string getCurrentTimeString(const std::string& format);

// A log file name without its directory: word size, calling thread and local time.
std::string getLogFileName();
