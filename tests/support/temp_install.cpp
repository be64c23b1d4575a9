#include "temp_install.h"

#include <fstream>
#include <random>
#include <sstream>
#include <algorithm>
#include <stdexcept>

namespace marloven::testing {

namespace fs = std::filesystem;

TempInstall::TempInstall() {
  std::random_device rd;
  for (int attempt = 0; attempt < 100; ++attempt) {
    fs::path candidate = fs::temp_directory_path() / ("marloven-test-" + std::to_string(rd()));
    if (fs::create_directory(candidate)) {
      root_ = candidate;
      break;
    }
  }
  if (root_.empty()) throw std::runtime_error("cannot create a temporary installation");
  for (const char* d : {"btype", "profiles", "sketch", "weather", "helpinfo", "sample", "temp"})
    fs::create_directory(root_ / d);
}

TempInstall::~TempInstall() {
  std::error_code ec;
  fs::remove_all(root_, ec);
}

void TempInstall::write(const std::string& sub, const std::string& bytes) const {
  std::ofstream out(root_ / sub, std::ios::binary | std::ios::trunc);
  out << bytes;
  if (!out) throw std::runtime_error("cannot write " + sub);
}

std::string TempInstall::read(const std::string& sub) const {
  std::ifstream in(root_ / sub, std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

bool TempInstall::exists(const std::string& sub) const { return fs::exists(root_ / sub); }

void TempInstall::writeStartupData() const {
  for (int i = 1; i <= 42; ++i)
    write("btype/bdtype" + std::to_string(i) + ".dat", crlf({"Type " + std::to_string(i) + " XX"}));
  for (int k = 1; k <= 4; ++k) {
    std::string text = "header of kind " + std::to_string(k) + "\r\n";
    for (int i = 1; i <= 42; ++i)
      text += "profile " + std::to_string(k) + "/" + std::to_string(i) + "\r\n";
    write("profiles/bprof" + std::to_string(k) + ".dat", text);
  }
}

std::vector<std::string> TempInstall::files() const {
  std::vector<std::string> out;
  for (const auto& e : fs::recursive_directory_iterator(root_))
    if (e.is_regular_file()) out.push_back(fs::relative(e.path(), root_).generic_string());
  std::sort(out.begin(), out.end());
  return out;
}

std::string crlf(std::initializer_list<std::string_view> lines) {
  std::string out;
  for (auto l : lines) {
    out += l;
    out += "\r\n";
  }
  return out;
}

}  // namespace marloven::testing
