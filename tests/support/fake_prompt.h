// A Prompt for tests: answers come from a script, and everything shown is
// logged so a test can assert on what the user would have seen. Free of any
// test framework so both GoogleTest and Qt Test cases can use it.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/prompt.h"

namespace marloven::testing {

class FakePrompt : public Prompt {
 public:
  enum class Kind { Beep, Message, Ask, Input };

  struct Shown {
    Kind kind;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::Ok;
    std::string title;
    std::string text;
  };

  // Answers to ask() and input(), taken in order.
  std::deque<Answer> answers;
  std::deque<std::optional<std::string>> inputs;

  std::vector<Shown> log;
  // Questions asked after the script ran out; they got the cautious answer
  // (No, Cancel, or Ok for an Ok-only box) and an input got nothing.
  int unscripted = 0;

  void beep() override { log.push_back({Kind::Beep, Icon::None, Buttons::Ok, {}, {}}); }

  void message(Icon icon, std::string_view title, std::string_view text) override {
    log.push_back({Kind::Message, icon, Buttons::Ok, std::string(title), std::string(text)});
  }

  Answer ask(Buttons buttons, Icon icon, std::string_view title, std::string_view text) override {
    log.push_back({Kind::Ask, icon, buttons, std::string(title), std::string(text)});
    const Answer cautious = buttons == Buttons::Ok      ? Answer::Ok
                            : buttons == Buttons::YesNo ? Answer::No
                                                        : Answer::Cancel;
    return next(answers, cautious);
  }

  std::optional<std::string> input(std::string_view title, std::string_view text,
                                   std::string_view /*preset*/) override {
    log.push_back({Kind::Input, Icon::None, Buttons::OkCancel, std::string(title),
                   std::string(text)});
    return next(inputs, std::optional<std::string>());
  }

  // (title, text) of everything shown, beeps as ("<beep>", "").
  std::vector<std::pair<std::string, std::string>> titlesAndTexts() const {
    std::vector<std::pair<std::string, std::string>> out;
    for (const auto& s : log)
      out.emplace_back(s.kind == Kind::Beep ? std::string("<beep>") : s.title, s.text);
    return out;
  }

 private:
  template <typename T>
  T next(std::deque<T>& script, T fallback) {
    if (script.empty()) {
      ++unscripted;
      return fallback;
    }
    T v = std::move(script.front());
    script.pop_front();
    return v;
  }
};

}  // namespace marloven::testing
