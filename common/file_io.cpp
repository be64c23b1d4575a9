#include "common/file_io.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <new>
#include <random>

#include "common/file_error.h"

namespace marloven {

namespace {

[[noreturn]] void failWithErrno(int errnoValue, const std::string& path) {
  throw FileError(errorNumberFromErrno(errnoValue), path);
}

// Closes on every path out, so that a throw leaks no descriptor.
class Fd {
 public:
  explicit Fd(int fd) : fd_(fd) {}
  ~Fd() {
    if (fd_ >= 0) ::close(fd_);
  }
  Fd(const Fd&) = delete;
  Fd& operator=(const Fd&) = delete;
  int get() const { return fd_; }
  // Closes now and reports the error: on some file systems a write error shows
  // only at close.
  int release() {
    const int r = ::close(fd_);
    fd_ = -1;
    return r;
  }

 private:
  int fd_;
};

std::string directoryOf(const std::string& path) {
  const auto slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  if (slash == 0) return "/";
  return path.substr(0, slash);
}

[[noreturn]] void failAndRemove(int errnoValue, const std::string& temp,
                                const std::string& path) {
  ::unlink(temp.c_str());
  failWithErrno(errnoValue, path);
}

char randomNameChar(std::mt19937& gen) {
  static constexpr char kChars[] =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
  std::uniform_int_distribution<int> pick(0, static_cast<int>(sizeof kChars) - 2);
  return kChars[pick(gen)];
}

}  // namespace

std::string readFile(const std::string& path) {
  const int raw = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (raw < 0) failWithErrno(errno, path);
  Fd fd(raw);
  struct stat st {};
  if (::fstat(fd.get(), &st) != 0) failWithErrno(errno, path);
  if (S_ISDIR(st.st_mode)) throw FileError(err::kPathFileAccess, path);

  std::string bytes;
  try {
    if (st.st_size > 0) bytes.reserve(static_cast<std::size_t>(st.st_size));
    char buf[65536];
    for (;;) {
      const ssize_t got = ::read(fd.get(), buf, sizeof buf);
      if (got < 0) {
        if (errno == EINTR) continue;
        failWithErrno(errno, path);
      }
      if (got == 0) break;
      bytes.append(buf, static_cast<std::size_t>(got));
    }
  } catch (const std::bad_alloc&) {
    throw FileError(err::kOutOfMemory, path);
  }
  return bytes;
}

void writeFileAtomic(const std::string& path, const std::string& bytes) {
  // The temporary is created with O_EXCL and mode 0666 (so the umask applies as
  // for any new file), unlike mkstemp's fixed 0600.
  thread_local std::mt19937 gen{std::random_device{}()};
  std::string temp;
  int raw = -1;
  for (int attempt = 0; attempt < 100 && raw < 0; ++attempt) {
    temp = path + ".tmp-";
    for (int k = 0; k < 6; ++k) temp += randomNameChar(gen);
    raw = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (raw < 0 && errno != EEXIST) failWithErrno(errno, path);
  }
  if (raw < 0) failWithErrno(EEXIST, path);

  Fd fd(raw);

  // A replaced file keeps its permissions.
  struct stat old {};
  if (::stat(path.c_str(), &old) == 0 && S_ISREG(old.st_mode))
    ::fchmod(fd.get(), old.st_mode & 07777);

  const char* p = bytes.data();
  std::size_t left = bytes.size();
  while (left > 0) {
    const ssize_t put = ::write(fd.get(), p, left);
    if (put < 0) {
      if (errno == EINTR) continue;
      failAndRemove(errno, temp, path);
    }
    p += put;
    left -= static_cast<std::size_t>(put);
  }
  if (::fsync(fd.get()) != 0) failAndRemove(errno, temp, path);
  if (fd.release() != 0) failAndRemove(errno, temp, path);
  if (::rename(temp.c_str(), path.c_str()) != 0) failAndRemove(errno, temp, path);

  // Best effort: make the rename itself durable.
  const int dir = ::open(directoryOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (dir >= 0) {
    ::fsync(dir);
    ::close(dir);
  }
}

bool fileExists(const std::string& path) {
  struct stat st {};
  return ::stat(path.c_str(), &st) == 0 && !S_ISDIR(st.st_mode);
}

std::string joinPath(const std::string& base, const std::string& sub) {
  // An empty base means the current folder, not the root.
  if (base.empty()) return sub;
  if (base.back() == '/') return base + sub;
  return base + "/" + sub;
}

}  // namespace marloven
