#include "store/postgresql/Statement.h"

#include <bit>
#include <charconv>
#include <cstdlib>
#include <utility>

#include "platform/Text.h"
#include "store/errors.h"

namespace pactora::store::postgresql {
namespace {

constexpr ::Oid kInt8 = 20;  // the server's number for the type
constexpr char kEscape = '\x1A';
constexpr std::string_view kDigits = "0123456789abcdef";

bool IsPlain(std::string_view text) {
  return text.find('\0') == std::string_view::npos &&
         text.find(kEscape) == std::string_view::npos && platform::IsValidUtf8(text);
}

// Most significant byte first, as it is sent.
void Put(std::uint64_t bits, std::array<char, 8>& bytes) {
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    bytes[i] = static_cast<char>(bits >> (56 - 8 * i));
  }
}

std::uint64_t Bits(std::string_view bytes) {
  std::uint64_t bits = 0;
  for (const char byte : bytes) bits = bits << 8 | static_cast<unsigned char>(byte);
  return bits;
}

}  // namespace

std::string Escaped(std::string_view text) {
  std::string escaped;
  while (!text.empty()) {
    const std::string_view character = platform::FirstCharacters(text, 1);
    if (IsPlain(character)) {
      escaped += character;
    } else {
      for (const char byte : character) {
        const auto value = static_cast<unsigned char>(byte);
        escaped += {kEscape, kDigits[value / 16], kDigits[value % 16]};
      }
    }
    text.remove_prefix(character.size());
  }
  return escaped;
}

std::string Unescaped(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    unsigned char byte = 0;
    const char* const digits = text.data() + i + 1;
    if (text[i] == kEscape && i + 2 < text.size() &&
        std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
      plain += static_cast<char>(byte);
      i += 2;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

std::int64_t StoredValue::Integer() const {
  const std::string_view bytes = Bytes();
  const std::uint64_t bits = Bits(bytes);
  if (bytes.size() == 4) return static_cast<std::int32_t>(bits);
  return static_cast<std::int64_t>(bits);
}

double StoredValue::Real() const { return std::bit_cast<double>(Bits(Bytes())); }

std::string StoredValue::Text() const {
  const std::string_view bytes = Bytes();
  if (bytes.find(kEscape) != std::string_view::npos) [[unlikely]]
    return Unescaped(bytes);
  return std::string(bytes);
}

Statement::Statement(Connection& connection, std::string sql)
    : connection_(connection), sql_(std::move(sql)) {}

Statement::Held& Statement::Hold(int parameter) {
  const auto place = static_cast<std::size_t>(parameter) - 1;
  if (held_.size() <= place) held_.resize(place + 1);
  return held_[place];
}

void Statement::Point(int parameter, const char* bytes, std::size_t size) {
  const auto place = static_cast<std::size_t>(parameter) - 1;
  if (parameters_.values.size() <= place) {
    parameters_.values.resize(place + 1);
    parameters_.lengths.resize(place + 1);
    parameters_.formats.resize(place + 1, 1);
    // A statement may leave numbers out.
    parameters_.types.resize(place + 1, kInt8);
  }
  parameters_.types[place] = 0;
  parameters_.values[place] = bytes;
  parameters_.lengths[place] = static_cast<int>(size);
}

void Statement::BindNull(int parameter) { Point(parameter, nullptr, 0); }

void Statement::Bind(int parameter, std::int64_t number) {
  auto& bytes = Hold(parameter).number;
  Put(static_cast<std::uint64_t>(number), bytes);
  Point(parameter, bytes.data(), bytes.size());
}

void Statement::Bind(int parameter, bool flag) {
  auto& bytes = Hold(parameter).number;
  bytes[0] = flag ? 1 : 0;
  Point(parameter, bytes.data(), 1);
}

void Statement::Bind(int parameter, double number) {
  Bind(parameter, std::bit_cast<std::int64_t>(number));
}

void Statement::Bind(int parameter, std::string_view text) {
  if (!IsPlain(text)) [[unlikely]]
    return BindCopy(parameter, Escaped(text));
  BindKey(parameter, text);
}

void Statement::BindCopy(int parameter, std::string text) {
  const std::string& copy = Hold(parameter).text = std::move(text);
  Point(parameter, copy.data(), copy.size());
}

void Statement::BindKey(int parameter, std::string_view key) {
  // A null pointer would bind NULL.
  Point(parameter, key.data() == nullptr ? "" : key.data(), key.size());
}

bool Statement::Step() {
  if (result_ == nullptr) {
    result_ = connection_.Execute(sql_, parameters_);
    row_ = -1;
  }
  if (++row_ < PQntuples(result_.get())) return true;
  Reset();
  return false;
}

std::int64_t Statement::Run() {
  const Result result = connection_.Execute(sql_, parameters_);
  return std::strtoll(PQcmdTuples(result.get()), nullptr, 10);
}

std::int64_t ReadNumber(Connection& connection, std::string_view sql) {
  Statement statement(connection, std::string(sql));
  return statement.Step() ? statement.Integer(0) : 0;
}

}  // namespace pactora::store::postgresql
