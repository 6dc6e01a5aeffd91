#pragma once

#include <deque>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/documents/prompts.h"

namespace quorvel {

/// Answers from lists filled beforehand and remembers what was asked. A question without an answer left fails
/// the test; a message with only an OK button needs none.
class ScriptedPrompts : public Prompts {
 public:
  std::deque<Answer> answers;
  std::deque<std::optional<std::string>> names;  ///< of files to open or save
  std::deque<std::optional<std::size_t>> types;

  std::vector<std::string> messages;
  std::vector<std::string> whatsThisTexts;  ///< one for each message
  std::vector<FilePrompt> filePrompts;
  std::vector<std::vector<std::string>> typeLists;

  using Prompts::Message;
  Answer Message(const std::string& text, MessageButtons buttons, MessageIcon,
                 const std::string& whatsThis) override {
    whatsThisTexts.push_back(whatsThis);
    messages.push_back(text);
    return buttons == MessageButtons::Ok ? Answer::Ok : Next(answers, Answer::Cancel, text);
  }
  std::optional<std::string> OpenFileName(const FilePrompt& prompt) override {
    filePrompts.push_back(prompt);
    return Next(names, {}, prompt.title);
  }
  std::optional<std::string> SaveFileName(const FilePrompt& prompt) override { return OpenFileName(prompt); }
  std::optional<std::size_t> SelectType(const std::vector<std::string>& list) override {
    typeLists.push_back(list);
    return Next(types, {}, "type list");
  }

  /// The messages since the last call.
  std::vector<std::string> TakeMessages() { return std::exchange(messages, {}); }

 private:
  template <class T>
  static T Next(std::deque<T>& script, T none, const std::string& question) {
    if (script.empty()) {
      ADD_FAILURE() << "nobody expected: " << question;
      return none;
    }
    T answer = script.front();
    script.pop_front();
    return answer;
  }
};

}  // namespace quorvel
