// Whole-file reading and safe writing. Paths are used as given.
#pragma once

#include <string>

namespace marloven {

// The bytes of a file. FileError 53 when it is missing, or the number that the
// failure maps to.
std::string readFile(const std::string& path);

// Writes bytes so that the old file is never lost before the new one is whole:
// a temporary file in the same directory, flushed, then renamed over the target.
// FileError on failure, with the temporary removed.
void writeFileAtomic(const std::string& path, const std::string& bytes);

bool fileExists(const std::string& path);

// Joins with "/" unless the base already ends in "/".
std::string joinPath(const std::string& base, const std::string& sub);

}  // namespace marloven
