// File and run-time errors as the one error report shows them.
//
// The file layer raises FileError with the number of the error table; a screen
// handler (or the command line) catches it and shows errorTitle()/errorMessage().
#pragma once

#include <stdexcept>
#include <string>

namespace marloven {

namespace err {
inline constexpr int kOverflow = 6;
inline constexpr int kOutOfMemory = 7;
inline constexpr int kSubscriptOutOfRange = 9;
inline constexpr int kTypeMismatch = 13;
inline constexpr int kBadFileName = 52;
inline constexpr int kFileNotFound = 53;
inline constexpr int kFileAlreadyOpen = 55;
inline constexpr int kDeviceIo = 57;
inline constexpr int kDiskFull = 61;
inline constexpr int kInputPastEnd = 62;
inline constexpr int kDeviceUnavailable = 68;
inline constexpr int kPermissionDenied = 70;
inline constexpr int kDiskNotReady = 71;
inline constexpr int kDiskMedia = 72;
inline constexpr int kPathFileAccess = 75;
inline constexpr int kPathNotFound = 76;
}  // namespace err

// The message the error report shows for a number: the program's own text for
// the numbers it replaces, the system's description for the others, and
// "Application-defined or object-defined error" for numbers it does not know.
std::string errorMessage(int number);

// "Marloven Error # " followed by the number as printed (with its leading blank).
std::string errorTitle(int number);

class FileError : public std::runtime_error {
 public:
  // detail says what failed (a path, a line); it is for logs and the command
  // line, never part of the report's message.
  explicit FileError(int number, std::string detail = {});
  int number() const { return number_; }
  const std::string& detail() const { return detail_; }

 private:
  int number_;
  std::string detail_;
};

// The error number for an errno value of a failed file operation
// (ENOENT -> 53, EACCES -> 70, ENOSPC and EFBIG -> 61, ENOTDIR -> 76, ...).
int errorNumberFromErrno(int errnoValue);

}  // namespace marloven
