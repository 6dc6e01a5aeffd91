#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "map/types/map_contents.h"
#include "platform/documents/feedback.h"

namespace quorvel {

/// Lines of a text form from words: every space ends a line with CR LF, and apostrophes stand for double
/// quotes.
std::string Lines(std::string_view words);

/// Definitions "Map" (1<10<1000 each way), list "Kind" of three items, class "Part" of one int, and a class
/// "Cell" with Name (string), Count (int), Weight (float), Kind (index) and Part (object).
std::string SampleClasses();

/// The contents that this definitions text makes; fails the test when there is an error text.
MapContents ContentsOf(const std::string& definitions);

/// An empty map of the sample classes.
MapContents EmptySampleMap(int width, int height);

/// A map of the sample classes: every third cell or so with values of all sorts.
MapContents SampleMap(int width, int height, std::uint32_t seed);

/// The file that the map is saved as, in its form; fails the test when it is refused or not of the planned
/// size.
std::string Saved(const MapContents& contents);
/// The map in this form.
std::string SavedAs(MapContents& contents, FileForm form);

/// What the bytes are loaded as.
MapContents Loaded(const std::string& bytes, std::string& errorText);

/// The types a line each, in their order: "class NAME: MEMBER KIND DEFAULT REF; ..." or
/// "list NAME: ITEM... | VALUE...".
std::string DescribeTypes(const TypeList& types);

/// Everything that a map is, as text: form, size, types, records with the bits of their values.
std::string Describe(const MapContents& contents);

/// Sets one member of one cell from a text, making the cell.
void SetValue(MapContents& contents, std::int32_t index, std::string_view member, std::string_view text);

inline const MemberDef* Member(const MapContents& contents, const char* name) {
  return contents.m_pCellClass->FindMember(name);
}

/// The value of a cell as its member formats it; "-" where the cell has no record.
std::string ValueText(const MapContents& map, std::int32_t index, const char* member);

/// Feedback that writes down every event: "show", "hide", "progress N", "text MESSAGE", "wait", "end wait".
class FeedbackLog : public NullFeedback {
 public:
  void SetMessageText(std::string_view text) override { Add("text " + std::string(text)); }
  void ShowProgress(bool show) override { Add(show ? "show" : "hide"); }
  void SetProgressPos(int percent) override { Add("progress " + std::to_string(percent)); }
  void BeginWait() override { Add("wait"); }
  void EndWait() override { Add("end wait"); }
  bool WantsEveryEvent() const override { return true; }

  const std::vector<std::string>& Events() const { return events_; }

 protected:
  void Add(std::string event) { events_.push_back(std::move(event)); }

 private:
  std::vector<std::string> events_;
};

}  // namespace quorvel
