// How screen logic talks to the user. The desktop program implements it with
// message boxes; tests implement it with a script of answers and a log.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace marloven {

enum class Icon { None, Information, Exclamation, Question, Critical };
enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Answer { Ok, Cancel, Yes, No };

class Prompt {
 public:
  virtual ~Prompt() = default;
  virtual void beep() = 0;
  virtual void message(Icon icon, std::string_view title, std::string_view text) = 0;
  virtual Answer ask(Buttons buttons, Icon icon, std::string_view title, std::string_view text) = 0;
  virtual std::optional<std::string> input(std::string_view title, std::string_view text,
                                           std::string_view preset) = 0;
};

}  // namespace marloven
