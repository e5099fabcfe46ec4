// Which information codes the handle-based callback may read as single
// values.
#pragma once

namespace klo_detail {

// The two-character entry of code what (0 .. 317): value type ('i', 'd')
// and kind ('m' single value, 'v' array); "**" for codes with nothing to
// read and for codes outside the table.
const char* infoEntry(int what);

// Raises -5001 unless what may be read as an int (type 'i' or kind 'm').
void checkIntInfo(int what);
// Raises -5001 unless what may be read as a double (type 'd' or kind 'm').
void checkDoubleInfo(int what);

}  // namespace klo_detail
