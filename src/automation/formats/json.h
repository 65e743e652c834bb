// JSON as it is read and written here: strict reading that names the place of
// every fault, and writing with one form for each value.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <istream>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace pactora::formats {

using Json = nlohmann::ordered_json;

// Where in which input something stands: "daten.json: tables.Adressen[3].Name".
class Place {
 public:
  explicit Place(std::string source, std::string path = {})
      : source_(std::move(source)), path_(std::move(path)) {}

  const std::string& Path() const { return path_; }
  Place Key(std::string_view key) const;
  Place Element(std::size_t index) const;

  // Raises DoorError::BadInput: source, path and what is wrong there.
  [[noreturn]] void Fail(const std::string& what) const;
  [[noreturn]] void FailUnknownKey(std::string_view key) const;

 private:
  std::string source_;
  std::string path_;
};

// Puts one value together from the events of the parser. A key that stands twice
// in one object is a fault, and so is a nesting deeper than kMaximumDepth.
class JsonBuilder {
 public:
  static constexpr std::size_t kMaximumDepth = 100;

  // Starts over; place is that of the value, for faults inside it.
  explicit JsonBuilder(Place place) : place_(std::move(place)) {}

  void Scalar(Json value);
  void Key(std::string key);
  void Start(Json container);  // an empty object or array
  void End();
  bool Complete() const { return complete_; }
  Json Take() { return std::move(root_); }

 private:
  struct Level {
    Json* container;
    std::string key;
  };
  Json* Put(Json value);
  Place Here() const;

  Place place_;
  Json root_;
  std::vector<Level> open_;
  bool complete_ = false;
};

// The parser's events. Subclasses take them in; a text that is no JSON raises
// DoorError::BadInput with line and column.
class JsonEvents : public nlohmann::json_sax<Json> {
 public:
  // one_line: the source is a single line, so that faults name their column alone.
  explicit JsonEvents(std::string source, bool one_line = false)
      : source_(std::move(source)), one_line_(one_line) {}

  // Reads the stream from where it stands to its end.
  void Read(std::istream& in);

 protected:
  virtual void OnScalar(Json value) = 0;
  virtual void OnKey(std::string key) = 0;
  virtual void OnStart(Json container) = 0;  // an empty object or array
  virtual void OnEnd() = 0;

  const std::string& Source() const { return source_; }

 private:
  bool null() final;
  bool boolean(bool value) final;
  bool number_integer(number_integer_t value) final;
  bool number_unsigned(number_unsigned_t value) final;
  bool number_float(number_float_t value, const string_t& text) final;
  bool string(string_t& value) final;
  bool binary(binary_t& value) final;
  bool start_object(std::size_t size) final;
  bool key(string_t& value) final;
  bool end_object() final;
  bool start_array(std::size_t size) final;
  bool end_array() final;
  bool parse_error(std::size_t position, const std::string& token,
                   const nlohmann::detail::exception& error) final;

  std::string source_;
  bool one_line_;
};

// Reads one JSON value; raises DoorError::BadInput for anything else.
Json ParseJson(std::istream& in, const std::string& source);
Json ParseJsonLine(const std::string& line, const std::string& source);

// Looking into a value. Each raises DoorError::BadInput at the place when the
// value is of another kind.
const Json& RequireObject(const Json& value, const Place& place);
const Json& RequireArray(const Json& value, const Place& place);
std::string RequireText(const Json& value, const Place& place);
bool RequireBoolean(const Json& value, const Place& place);
std::int32_t RequireLong(const Json& value, const Place& place);
double RequireDouble(const Json& value, const Place& place);
// A key of the object, null when it is not there. Requires: object is one.
const Json* Find(const Json& object, std::string_view key);
// A key that must be there.
const Json& Require(const Json& object, std::string_view key, const Place& place);
// Refuses every key that is not listed.
void AllowKeys(const Json& object, std::initializer_list<std::string_view> keys,
               const Place& place);

}  // namespace pactora::formats
