// What a results reader hands back instead of throwing: nothing when it went
// through, otherwise the error number of the one error report and whether the
// results menus must go dark.
#pragma once

#include <functional>
#include <string>

namespace marloven {

struct ReadStatus {
  int errorNumber = 0;  // 0: the reader went through
  std::string detail;   // what failed, for the command line; not part of the report's message
  // Set by the chart readers' faults: the caller clears "output viewable" so
  // that the results menus stay dark until another output is there.
  bool clearOutputViewable = false;

  bool ok() const { return errorNumber == 0; }
  // The error report's message for the number (the shell adds the title).
  std::string message() const;
};

// Runs a reader's body under the one error trap: a FileError keeps its number,
// memory running out is 7, a file system failure maps through errno, and
// anything else is reported as 51 (internal error) rather than escaping.
ReadStatus trapped(bool chartReader, const std::function<void()>& body);

}  // namespace marloven
