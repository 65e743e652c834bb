#include "automation/formats/JsonWriter.h"

#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <sstream>

#include "automation/formats/visible.h"
#include "platform/Error.h"
#include "platform/Text.h"

namespace pactora::formats {
namespace {

// What stands for a character in a text; empty where it stands for itself.
std::string FormOf(std::optional<std::uint32_t> code) {
  if (!code) return "\uFFFD";
  switch (*code) {
    case '"':
      return "\\\"";
    case '\\':
      return "\\\\";
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    default:
      return IsControl(*code) ? EscapeOf(*code) : std::string();
  }
}

}  // namespace

std::string NumberText(double number) {
  if (!std::isfinite(number)) platform::Raise(platform::RuntimeError::Overflow);
  if (number == 0.0 && std::signbit(number)) return "-0.0";
  const double size = std::fabs(number);
  const bool plain = size == 0.0 || (size >= 1e-7 && size < 1e21);
  std::array<char, 64> buffer{};
  const auto result =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                    plain ? std::chars_format::fixed : std::chars_format::scientific);
  return std::string(buffer.data(), result.ptr);
}

void JsonWriter::NewLine() {
  if (layout_ == Layout::OneLine) return;
  out_ << '\n';
  for (std::size_t level = 0; level < empty_.size(); ++level) out_ << "  ";
}

void JsonWriter::BeforeValue() {
  if (after_key_) {
    after_key_ = false;
    return;
  }
  if (empty_.empty()) return;
  if (!empty_.back()) out_ << ',';
  empty_.back() = false;
  NewLine();
}

void JsonWriter::Begin(char bracket) {
  BeforeValue();
  out_ << bracket;
  empty_.push_back(true);
}

void JsonWriter::End(char bracket) {
  const bool empty = empty_.back();
  empty_.pop_back();
  if (!empty) NewLine();
  out_ << bracket;
}

void JsonWriter::Key(std::string_view key) {
  BeforeValue();
  Quoted(key);
  out_ << (layout_ == Layout::OneLine ? ":" : ": ");
  after_key_ = true;
}

void JsonWriter::Plain(std::string_view text) {
  BeforeValue();
  out_ << text;
}

void JsonWriter::Text(std::string_view value) {
  BeforeValue();
  Quoted(value);
}

void JsonWriter::Quoted(std::string_view text) {
  out_ << '"';
  std::size_t written = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (c >= 0x20 && c < 0x7F && c != '"' && c != '\\') continue;
    const std::string_view rest = text.substr(at);
    const std::string form = FormOf(platform::FirstCode(rest));
    const std::size_t end = at + platform::FirstCharacters(rest, 1).size();
    if (!form.empty()) {
      out_ << text.substr(written, at - written) << form;
      written = end;
    }
    at = end - 1;
  }
  out_ << text.substr(written) << '"';
}

void JsonWriter::Value(const Json& value) {
  switch (value.type()) {
    case Json::value_t::object:
      BeginObject();
      for (const auto& member : value.items()) {
        Key(member.key());
        Value(member.value());
      }
      EndObject();
      return;
    case Json::value_t::array:
      BeginArray();
      for (const Json& element : value) Value(element);
      EndArray();
      return;
    case Json::value_t::string:
      return Text(value.get_ref<const std::string&>());
    case Json::value_t::boolean:
      return Boolean(value.get<bool>());
    case Json::value_t::number_unsigned:
      return Plain(std::to_string(value.get<std::uint64_t>()));
    case Json::value_t::number_integer:
      return Integer(value.get<std::int64_t>());
    case Json::value_t::number_float:
      return Number(value.get<double>());
    default:
      return Null();
  }
}

std::string OneLine(const Json& value) {
  std::ostringstream out;
  JsonWriter(out, JsonWriter::Layout::OneLine).Value(value);
  return std::move(out).str();
}

}  // namespace pactora::formats
