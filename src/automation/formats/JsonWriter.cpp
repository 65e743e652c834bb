#include "automation/formats/JsonWriter.h"

#include <array>
#include <charconv>
#include <cmath>
#include <sstream>

#include "platform/Error.h"
#include "platform/Text.h"

namespace pactora::formats {

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
  if (!platform::IsValidUtf8(text)) {
    out_ << Json(std::string(text)).dump(-1, ' ', false, Json::error_handler_t::replace);
    return;
  }
  out_ << '"';
  std::size_t written = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (static_cast<unsigned char>(c) >= 0x20 && c != '"' && c != '\\') continue;
    out_ << text.substr(written, at - written);
    written = at + 1;
    switch (c) {
      case '"':
        out_ << "\\\"";
        break;
      case '\\':
        out_ << "\\\\";
        break;
      case '\n':
        out_ << "\\n";
        break;
      case '\r':
        out_ << "\\r";
        break;
      case '\t':
        out_ << "\\t";
        break;
      default: {
        constexpr std::string_view kDigits = "0123456789abcdef";
        const auto code = static_cast<unsigned char>(c);
        out_ << "\\u00" << kDigits[code >> 4] << kDigits[code & 15];
      }
    }
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
