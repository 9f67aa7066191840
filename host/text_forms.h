#pragma once

#include <cstddef>
#include <string>

#include "host/velko_interfaces.h"
#include "layer/foundation/utf8.h"

// Host strings are zero-terminated 16-bit units, one unit per character; wide strings hold
// 32-bit wchar_t; narrow strings are UTF-8. Between host and wide form a unit is copied as a
// number: characters above U+FFFF keep only their low 16 bits on the way to the host.

unsigned int getLenShortWcharStr(const unsigned short* source);
// The same, counting no further than limit + 1: a text longer than limit is told apart without
// a walk over all of it.
std::size_t boundedLenShortWcharStr(const unsigned short* source, std::size_t limit);

// A len of 0 means the whole source with its terminator. A null *dest gets a buffer from
// new[] that the caller frees; otherwise *dest must hold len units. Gives the units written.
unsigned int convToShortWchar(unsigned short** dest, const wchar_t* source, unsigned int len = 0);
unsigned int convFromShortWchar(wchar_t** dest, const unsigned short* source, unsigned int len = 0);

// A len of 0 measures the source; any other len gives exactly that many characters.
std::wstring convFromShortWchar(const unsigned short* source, unsigned int len = 0);
std::wstring convFromShortWchar(const VelkoVariant& value);

// A copy of source with its terminator in host memory, or null; *length gets the source's
// length even when nothing could be allocated.
unsigned short* AllocAndConvert(IVelkoMemory* memory, const wchar_t* source, unsigned int* length);
VelkoVariant AllocAndConvertVariant(IVelkoMemory* memory, const wchar_t* source);

// Both accept the host's integer and floating tags, doubles truncated toward zero. Other tags,
// NaN and doubles out of the result's range give false and leave result untouched; for
// convVarToDWORD negative values wrap to 32 bits as the integer payload does.
bool convVarToInt(const VelkoVariant& value, int& result);
bool convVarToDWORD(const VelkoVariant& value, unsigned long& result);
