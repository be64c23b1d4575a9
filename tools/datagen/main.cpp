// marloven-datagen DATA_DIR INSTALL_DIR: writes the generated files of the
// installation tree from the tables of DATA_DIR (see install_data.h).
#include <iostream>

#include "common/file_error.h"
#include "common/file_io.h"
#include "tools/datagen/install_data.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: marloven-datagen DATA_DIR INSTALL_DIR\n";
    return 2;
  }
  try {
    // Everything is made before anything is written, so bad data changes no file.
    const auto files = marloven::datagen::makeInstallData(argv[1]);
    for (const auto& f : files) marloven::writeFileAtomic(marloven::joinPath(argv[2], f.path), f.bytes);
    std::cout << files.size() << " files written under " << argv[2] << "\n";
  } catch (const marloven::datagen::DataError& e) {
    std::cerr << "marloven-datagen: " << e.what() << "\n";
    return 1;
  } catch (const marloven::FileError& e) {
    std::cerr << "marloven-datagen: " << marloven::errorMessage(e.number()) << " (" << e.detail() << ")\n";
    return 1;
  }
  return 0;
}
