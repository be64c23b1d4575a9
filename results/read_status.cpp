#include "results/read_status.h"

#include <filesystem>
#include <new>

#include "common/file_error.h"

namespace marloven {

std::string ReadStatus::message() const { return errorMessage(errorNumber); }

ReadStatus trapped(bool chartReader, const std::function<void()>& body) {
  ReadStatus status;
  try {
    body();
    return status;
  } catch (const FileError& e) {
    status.errorNumber = e.number();
    status.detail = e.detail();
  } catch (const std::bad_alloc&) {
    status.errorNumber = err::kOutOfMemory;
  } catch (const std::filesystem::filesystem_error& e) {
    status.errorNumber = errorNumberFromErrno(e.code().value());
    status.detail = e.what();
  } catch (const std::exception& e) {
    status.errorNumber = 51;
    status.detail = e.what();
  }
  status.clearOutputViewable = chartReader;
  return status;
}

}  // namespace marloven
