// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/vectors/UTL_SV_DoubleVector.h"

namespace Classes
{
class TStream;
} // namespace Classes

// How charts stand in a stream: numbers of 32 bits, texts and lists of floats with their count in front, the
// lowest byte first. A count from a damaged stream takes no more memory than the stream has bytes.

namespace BTL::Detail
{

[[noreturn]] void ThrowDamagedChart(const System::UnicodeString& place, const char* fault);

void WriteNumber(Classes::TStream& stream, int number);
void WriteText(Classes::TStream& stream, const System::UnicodeString& text);
void WriteValues(Classes::TStream& stream, const UTL::CDoubleVector& values);

int ReadNumber(Classes::TStream& stream);
/// A number that counts something; one below 0 is a fault.
unsigned ReadCount(Classes::TStream& stream);
System::UnicodeString ReadText(Classes::TStream& stream);
UTL::CDoubleVector ReadValues(Classes::TStream& stream);

} // namespace BTL::Detail
