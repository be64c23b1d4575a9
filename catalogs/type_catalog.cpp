#include "catalogs/type_catalog.h"

#include "common/file_error.h"
#include "common/file_io.h"
#include "common/text_lines.h"
#include "project/catalog_record.h"

namespace marloven {

std::string typeCatalogPath(const std::string& installDir, TypeCatalogKind kind) {
  return joinPath(installDir, kind == TypeCatalogKind::Walls ? "profiles/bprof6.dat" : "profiles/bprof7.dat");
}

TypeCatalog parseTypeCatalog(std::string_view bytes, UnitSystem units) {
  LineReader in = LineReader::fromText(bytes);
  TypeCatalog c;
  for (int n = 1; !in.atEnd(); ++n) {
    if (n > kCatalogEntries)
      throw FileError(err::kSubscriptOutOfRange, "catalog entry " + std::to_string(n));
    c.entries[n] = readCatalogRecord(in, units);
  }
  return c;
}

std::string formatTypeCatalog(const TypeCatalog& catalog, UnitSystem units) {
  std::string out;
  for (int n = 1; n <= kCatalogEntries; ++n) {
    if (catalog.entries[n].id().empty()) break;
    appendCatalogRecord(out, catalog.entries[n], units);
  }
  return out;
}

TypeCatalog readTypeCatalog(const std::string& path, UnitSystem units) {
  return parseTypeCatalog(readFile(path), units);
}

void writeTypeCatalog(const std::string& path, const TypeCatalog& catalog, UnitSystem units) {
  writeFileAtomic(path, formatTypeCatalog(catalog, units));
}

}  // namespace marloven
