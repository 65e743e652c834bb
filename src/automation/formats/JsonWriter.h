// Writes JSON as it goes, without holding it: on one line, or a line for each
// member, indented by two blanks.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "automation/formats/json.h"

namespace pactora::formats {

// The shortest text that reads back to the same number, without exponent from
// 1e-7 up to 1e21. Raises error 6 for a number that is not finite.
std::string NumberText(double number);

class JsonWriter {
 public:
  enum class Layout { OneLine, Indented };

  // The stream must outlive the writer.
  JsonWriter(std::ostream& out, Layout layout) : out_(out), layout_(layout) {}

  void BeginObject() { Begin('{'); }
  void EndObject() { End('}'); }
  void BeginArray() { Begin('['); }
  void EndArray() { End(']'); }
  // The key of the value that is written next. Requires: an object is open.
  void Key(std::string_view key);

  void Null() { Plain("null"); }
  void Boolean(bool value) { Plain(value ? "true" : "false"); }
  void Integer(std::int64_t value) { Plain(std::to_string(value)); }
  void Number(double value) { Plain(NumberText(value)); }
  // Control characters are written as escapes, so that the text does not act on a terminal
  // either. A byte that is no valid UTF-8 becomes the replacement character.
  void Text(std::string_view value);
  void Value(const Json& value);

 private:
  void Begin(char bracket);
  void End(char bracket);
  void Plain(std::string_view text);
  void BeforeValue();
  void NewLine();
  void Quoted(std::string_view text);

  std::ostream& out_;
  Layout layout_;
  std::vector<bool> empty_;  // for each open container: nothing in it yet
  bool after_key_ = false;
};

// The value on one line.
std::string OneLine(const Json& value);

}  // namespace pactora::formats
