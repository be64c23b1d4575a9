#include "common/file_error.h"

#include <cerrno>

#include "common/number_text.h"

namespace marloven {

std::string errorMessage(int number) {
  switch (number) {
    // The program's own texts (the double blanks are part of them).
    case 7: return "File is too big to open.";
    case 52: return "Bad file name or number.";
    case 53:
      return "Bad file name, or some files are missing, or your input is not complete. "
             "Re-check your program input data.";
    case 55: return "Error. File already open.";
    case 57:
    case 68:
    case 71:
    case 72: return "Disk error. Please check the disk and try again.";
    case 61: return "Disk is full.  Save to another disk.";
    case 62:
      return "MARLOVEN is unable to open your input file because it has a wrong format.  "
             "Check your input file.";
    case 70: return "Permission denied.  Check the disk.";
    case 75:
    case 76: return "Path not found or path/file access error.";
    // The run-time system's descriptions.
    case 3: return "Return without GoSub";
    case 5: return "Invalid procedure call or argument";
    case 6: return "Overflow";
    case 9: return "Subscript out of range";
    case 11: return "Division by zero";
    case 13: return "Type mismatch";
    case 54: return "Bad file mode";
    case 58: return "File already exists";
    case 63: return "Bad record number";
    case 64: return "Bad file name";
    case 67: return "Too many files";
    case 74: return "Can't rename with different drive";
    default: return "Application-defined or object-defined error";
  }
}

std::string errorTitle(int number) { return "Marloven Error # " + padded(number); }

namespace {

std::string describe(int number, const std::string& detail) {
  std::string s = errorTitle(number) + ": " + errorMessage(number);
  if (!detail.empty()) s += " (" + detail + ")";
  return s;
}

}  // namespace

FileError::FileError(int number, std::string detail)
    : std::runtime_error(describe(number, detail)), number_(number), detail_(std::move(detail)) {}

int errorNumberFromErrno(int errnoValue) {
  switch (errnoValue) {
    case ENOENT: return err::kFileNotFound;
    case EACCES:
    case EPERM:
    case EROFS: return err::kPermissionDenied;
    case ENOSPC:
    case EFBIG:  // past the file-size limit: no more room, as on a full disk
#ifdef EDQUOT
    case EDQUOT:
#endif
      return err::kDiskFull;
    case ENOTDIR: return err::kPathNotFound;
    case ENAMETOOLONG:
    case EISDIR: return err::kPathFileAccess;
    case EIO: return err::kDeviceIo;
    case EMFILE:
    case ENFILE: return 67;  // too many files
    case ENOMEM: return err::kOutOfMemory;
    default: return err::kPathFileAccess;
  }
}

}  // namespace marloven
