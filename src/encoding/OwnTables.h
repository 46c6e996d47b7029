#pragma once

#include <array>
#include <string_view>

// Single-byte character sets that neither ICU nor glibc iconv converts. Bytes below 0x80
// are ASCII in both; each table gives the UTF-16 unit of the bytes 0x80..0xFF, 0xFFFF where
// a byte has no character.
using HighHalfTable = std::array<char16_t, 128>;

// nullptr when there is no table of that name.
const HighHalfTable *ownHighHalfTable(std::string_view name);
