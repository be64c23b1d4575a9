// The run's log, tarn64.err: warnings and errors with where they came from.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace tarn {

// Exit codes of the program; the log's last line repeats them.
enum class ExitCode : int { Ok = 0, BadInput = 1, BadWeather = 2, NotWritable = 3, Internal = 4, BadArgument = 64 };

class RunLog {
 public:
  void warning(const std::string& where, const std::string& text) {
    lines_.push_back("WARNING " + where + ": " + text);
    ++warnings_;
  }
  void error(const std::string& where, const std::string& text) {
    lines_.push_back("ERROR " + where + ": " + text);
  }
  void add(const std::string& line) { lines_.push_back(line); }
  int warnings() const { return warnings_; }
  const std::vector<std::string>& lines() const { return lines_; }

 private:
  std::vector<std::string> lines_;
  int warnings_ = 0;
};

// A failure that ends the run with its exit code; the message is the log line's text.
class RunFailure : public std::runtime_error {
 public:
  RunFailure(ExitCode code, std::string where, const std::string& what)
      : std::runtime_error(what), code_(code), where_(std::move(where)) {}
  ExitCode code() const { return code_; }
  const std::string& where() const { return where_; }

 private:
  ExitCode code_;
  std::string where_;
};

}  // namespace tarn
