#include "automation/formats/json.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <sstream>

#include "automation/formats/errors.h"
#include "platform/Text.h"

namespace pactora::formats {

Place Place::Key(std::string_view key) const {
  return Place(source_, path_.empty() ? std::string(key) : fmt::format("{}.{}", path_, key));
}

Place Place::Element(std::size_t index) const {
  return Place(source_, fmt::format("{}[{}]", path_, index));
}

void Place::Fail(const std::string& what) const {
  Raise(DoorError::BadInput, path_.empty() ? fmt::format("{}: {}", source_, what)
                                           : fmt::format("{}: {}: {}", source_, path_, what));
}

void Place::FailUnknownKey(std::string_view key) const {
  Fail(fmt::format("unbekannter Schlüssel „{}“", key));
}

Place JsonBuilder::Here() const {
  Place place = place_;
  for (const Level& level : open_) {
    // An array that is not the innermost holds the container inside it already.
    const std::size_t inside = &level == &open_.back() ? 0 : 1;
    place = level.container->is_array() ? place.Element(level.container->size() - inside)
                                        : place.Key(level.key);
  }
  return place;
}

Json* JsonBuilder::Put(Json value) {
  if (open_.empty()) {
    root_ = std::move(value);
    return &root_;
  }
  Level& level = open_.back();
  if (level.container->is_array()) {
    level.container->push_back(std::move(value));
    return &level.container->back();
  }
  // The key was checked in Key: it is new, so appending keeps the order.
  auto& members = level.container->get_ref<Json::object_t&>();
  members.emplace_back(level.key, std::move(value));
  return &members.back().second;
}

void JsonBuilder::Scalar(Json value) {
  Put(std::move(value));
  complete_ = open_.empty();
}

void JsonBuilder::Key(std::string key) {
  Level& level = open_.back();
  level.key = std::move(key);
  if (level.container->contains(level.key)) Here().Fail("der Schlüssel steht doppelt da");
}

void JsonBuilder::Start(Json container) {
  if (open_.size() >= kMaximumDepth) Here().Fail("zu tief geschachtelt");
  Json* place = Put(std::move(container));
  open_.push_back({place, {}});
}

void JsonBuilder::End() {
  open_.pop_back();
  complete_ = open_.empty();
}

void JsonEvents::Read(std::istream& in) {
  Json::sax_parse(in, static_cast<nlohmann::json_sax<Json>*>(this));
}

bool JsonEvents::null() {
  OnScalar(nullptr);
  return true;
}
bool JsonEvents::boolean(bool value) {
  OnScalar(value);
  return true;
}
bool JsonEvents::number_integer(number_integer_t value) {
  OnScalar(value);
  return true;
}
bool JsonEvents::number_unsigned(number_unsigned_t value) {
  OnScalar(value);
  return true;
}
bool JsonEvents::number_float(number_float_t value, const string_t&) {
  OnScalar(value);
  return true;
}
bool JsonEvents::string(string_t& value) {
  OnScalar(std::move(value));
  return true;
}
bool JsonEvents::binary(binary_t&) { return false; }
bool JsonEvents::start_object(std::size_t) {
  OnStart(Json::object());
  return true;
}
bool JsonEvents::key(string_t& value) {
  OnKey(std::move(value));
  return true;
}
bool JsonEvents::end_object() {
  OnEnd();
  return true;
}
bool JsonEvents::start_array(std::size_t) {
  OnStart(Json::array());
  return true;
}
bool JsonEvents::end_array() {
  OnEnd();
  return true;
}

bool JsonEvents::parse_error(std::size_t position, const std::string& token,
                             const nlohmann::detail::exception& error) {
  if (dynamic_cast<const Json::out_of_range*>(&error) != nullptr) {
    Raise(DoorError::BadInput,
          fmt::format("{}: Stelle {}: die Zahl {} ist zu groß", source_, position, token));
  }
  // The library gives the place only within its text: "... at line 3, column 5: ...".
  const std::string_view text = error.what();
  const auto number_after = [&text](std::string_view label) {
    const std::size_t found = text.find(label);
    std::string digits;
    if (found != std::string_view::npos)
      for (std::size_t at = found + label.size(); at < text.size(); ++at) {
        if (text[at] < '0' || text[at] > '9') break;
        digits += text[at];
      }
    return digits;
  };
  const std::string line = number_after(" line ");
  const std::string column = number_after(", column ");
  const std::string where = line.empty() ? std::string()
                            : one_line_  ? fmt::format("Spalte {}: ", column)
                                         : fmt::format("Zeile {}, Spalte {}: ", line, column);
  const bool ended = text.find("unexpected end of input") != std::string_view::npos;
  const std::string read = ended                                ? " (der Text endet zu früh)"
                           : !platform::IsValidUtf8(token)      ? " (kein UTF-8)"
                           : token.empty() || token.size() > 60 ? std::string()
                                                                : fmt::format(" (bei „{}“)", token);
  Raise(DoorError::BadInput, fmt::format("{}: {}kein gültiges JSON{}", source_, where, read));
}

namespace {

class OneValue final : public JsonEvents {
 public:
  OneValue(const std::string& source, bool one_line)
      : JsonEvents(source, one_line), builder_(Place(source)) {}
  Json Take() { return builder_.Take(); }

 private:
  void OnScalar(Json value) override { builder_.Scalar(std::move(value)); }
  void OnKey(std::string key) override { builder_.Key(std::move(key)); }
  void OnStart(Json container) override { builder_.Start(std::move(container)); }
  void OnEnd() override { builder_.End(); }

  JsonBuilder builder_;
};

}  // namespace

Json ParseJson(std::istream& in, const std::string& source) {
  OneValue events(source, false);
  events.Read(in);
  return events.Take();
}

Json ParseJsonLine(const std::string& line, const std::string& source) {
  std::istringstream in(line);
  OneValue events(source, true);
  events.Read(in);
  return events.Take();
}

const Json& RequireObject(const Json& value, const Place& place) {
  if (!value.is_object()) place.Fail("ein Objekt wird erwartet");
  return value;
}

const Json& RequireArray(const Json& value, const Place& place) {
  if (!value.is_array()) place.Fail("eine Liste wird erwartet");
  return value;
}

std::string RequireText(const Json& value, const Place& place) {
  if (!value.is_string()) place.Fail("ein Text wird erwartet");
  return value.get<std::string>();
}

bool RequireBoolean(const Json& value, const Place& place) {
  if (!value.is_boolean()) place.Fail("true oder false wird erwartet");
  return value.get<bool>();
}

std::int32_t RequireLong(const Json& value, const Place& place) {
  using Limits = std::numeric_limits<std::int32_t>;
  const double number = value.is_number() ? value.get<double>() : std::nan("");
  // "12.0" is as whole as "12".
  if (!(number == std::trunc(number))) place.Fail("eine ganze Zahl wird erwartet");
  if (number < Limits::min() || number > Limits::max()) place.Fail("die Zahl ist zu groß");
  return static_cast<std::int32_t>(number);
}

double RequireDouble(const Json& value, const Place& place) {
  if (!value.is_number()) place.Fail("eine Zahl wird erwartet");
  return value.get<double>();
}

const Json* Find(const Json& object, std::string_view key) {
  const auto found = object.find(std::string(key));
  return found == object.end() ? nullptr : &*found;
}

const Json& Require(const Json& object, std::string_view key, const Place& place) {
  const Json* found = Find(object, key);
  if (!found) place.Fail(fmt::format("„{}“ fehlt", key));
  return *found;
}

void AllowKeys(const Json& object, std::initializer_list<std::string_view> keys,
               const Place& place) {
  for (const auto& member : object.items())
    if (std::find(keys.begin(), keys.end(), std::string_view(member.key())) == keys.end())
      place.FailUnknownKey(member.key());
}

}  // namespace pactora::formats
