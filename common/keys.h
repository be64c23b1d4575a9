// Keys as the screen logic sees them: the character typed, with the control
// keys that the key filters name given their ASCII codes.
#pragma once

namespace marloven::key {

inline constexpr char kBackspace = '\b';
inline constexpr char kTab = '\t';
inline constexpr char kEnter = '\r';
inline constexpr char kEscape = 27;

inline constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace marloven::key
