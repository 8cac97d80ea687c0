#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "core/GradeSheet.h"
#include "core/ports/Files.h"

/// Files made by hand, byte for byte, so that what reads and writes them has nothing to agree with
/// but these.
namespace quorvel {

/// The bytes that a line of hexadecimal digits names; blanks are skipped.
Bytes hex(std::string_view digits);

/// One record of 128 bytes that starts with these.
Bytes recordWith(const Bytes& start, unsigned char filler = 0);

/// Records of one value each, filled up with `filler`.
Bytes integerRecord(int value, unsigned char filler = 0);
Bytes textRecord(std::string_view text, unsigned char filler = 0);
Bytes emptyRecord(unsigned char filler = 0);
Bytes taggedIntegerRecord(int value, unsigned char filler = 0);
Bytes taggedTextRecord(std::string_view text, unsigned char filler = 0);

Bytes joined(std::initializer_list<Bytes> parts);
Bytes firstBytes(const Bytes& bytes, std::size_t count);
Bytes operator+(Bytes left, const Bytes& right);

/// Everything that a sheet's file holds, as text to compare and to read in a failure.
std::string contentOf(const GradeSheet& sheet);

/// Two students, three assignments, a score of every kind: 19 records.
Bytes sampleFile(unsigned char filler = 0);
/// The sheet that it holds.
GradeSheet sampleSheet();
std::string sampleContent();

}  // namespace quorvel
