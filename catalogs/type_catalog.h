// The wall/roof/floor catalog profiles/bprof6.dat and the window catalog
// profiles/bprof7.dat: up to 30 entries of seven lines each, no header, no
// separator, always I-P in the file. The texts go from file to screen and back
// untouched in I-P; in SI the U-factor and cost are converted both ways (see
// project/catalog_record.h), so work in SI rounds them in the file.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "project/project_model.h"

namespace marloven {

inline constexpr int kCatalogEntries = 30;

enum class TypeCatalogKind { Walls, Windows };

struct TypeCatalog {
  // Entries 1..30 as seven texts each; an entry with an empty ID is free.
  std::array<CatalogType, kCatalogEntries + 1> entries;
};

// installDir/profiles/bprof6.dat or bprof7.dat.
std::string typeCatalogPath(const std::string& installDir, TypeCatalogKind kind);

// Entries from the file's bytes in the given units. FileError 62 when the last
// entry is partial, 9 for a 31st entry.
TypeCatalog parseTypeCatalog(std::string_view bytes, UnitSystem units);

// The file's bytes: entries from 1 up to the first with an empty ID (an empty
// description keeps its place), converted back to I-P from the given units.
std::string formatTypeCatalog(const TypeCatalog& catalog, UnitSystem units);

// The same on a file. Reading raises FileError 53 for a missing file; writing
// replaces the file whole or, on failure, not at all.
TypeCatalog readTypeCatalog(const std::string& path, UnitSystem units);
void writeTypeCatalog(const std::string& path, const TypeCatalog& catalog, UnitSystem units);

}  // namespace marloven
