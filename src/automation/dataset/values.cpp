#include "automation/dataset/values.h"

#include <fmt/format.h>

#include <charconv>
#include <memory>

#include "automation/formats/errors.h"
#include "platform/Error.h"
#include "store/Document.h"
#include "store/errors.h"
#include "store/rows.h"

namespace pactora::dataset {

namespace {

constexpr std::string_view kDateExpected = "ein Datum wird erwartet, zum Beispiel „2024-03-15“";

}  // namespace

platform::Date ReadDate(const formats::Json& value, const formats::Place& place) {
  if (value.is_number_integer() && value == 0) return platform::kNoDate;
  if (!value.is_string()) place.Fail(std::string(kDateExpected));
  const auto date = platform::ParseIso(value.get_ref<const std::string&>());
  if (!date) place.Fail(std::string(kDateExpected));
  return *date;
}

host::Value ReadField(const schema::Field& field, const formats::Json& value,
                      const formats::Place& place) {
  if (value.is_null()) return {};
  switch (field.type) {
    case schema::FieldType::Text: {
      host::Value text(formats::RequireText(value, place));
      try {
        return store::ConvertToField(field, text);
      } catch (const platform::Error& error) {
        if (error.Number() != store::Number(store::StoreError::TextTooLong)) throw;
        place.Fail(fmt::format("der Text ist länger als {} Zeichen", field.size));
      }
    }
    case schema::FieldType::Long:
      return formats::RequireLong(value, place);
    case schema::FieldType::Double:
      return formats::RequireDouble(value, place);
    case schema::FieldType::Boolean:
      return formats::RequireBoolean(value, place);
    case schema::FieldType::Date:
      return ReadDate(value, place);
    case schema::FieldType::Document: {
      formats::RequireObject(value, place);
      formats::AllowKeys(value, {"document"}, place);
      const std::string name =
          formats::RequireText(formats::Require(value, "document", place), place.Key("document"));
      return std::make_shared<store::NamedDocument>(name);
    }
  }
  return {};
}

host::Value ReadFree(const formats::Json& value, const formats::Place& place) {
  switch (value.type()) {
    case formats::Json::value_t::null:
      return {};
    case formats::Json::value_t::boolean:
      return value.get<bool>();
    case formats::Json::value_t::string:
      return value.get<std::string>();
    case formats::Json::value_t::number_float:
      return value.get<double>();
    case formats::Json::value_t::number_integer:
    case formats::Json::value_t::number_unsigned:
      return formats::RequireLong(value, place);
    case formats::Json::value_t::array: {
      host::ValueArray elements;
      for (std::size_t i = 0; i < value.size(); ++i)
        elements.emplace_back(formats::RequireText(value[i], place.Element(i)));
      return elements;
    }
    default:
      place.Fail("ein Text, eine Zahl, true, false oder eine Liste von Texten wird erwartet");
  }
}

formats::Json ToJson(const host::Value& value) {
  switch (value.GetKind()) {
    case host::Kind::Empty:
      return nullptr;
    case host::Kind::Integer:
      return value.AsInteger();
    case host::Kind::Long:
      return value.AsLong();
    case host::Kind::Double:
      return value.AsDouble();
    case host::Kind::Boolean:
      return value.AsBoolean();
    case host::Kind::Text:
      return value.AsText();
    case host::Kind::Date:
      if (value.AsDate() == platform::kNoDate) return 0;
      return platform::FormatIso(value.AsDate());
    case host::Kind::Array: {
      formats::Json elements = formats::Json::array();
      for (const host::Value& element : value.AsArray()) elements.push_back(ToJson(element));
      return elements;
    }
    case host::Kind::Object: {
      const auto document = std::dynamic_pointer_cast<store::NamedDocument>(value.AsObject());
      if (!document) return nullptr;
      return formats::Json{{"document", document->Name()}};
    }
  }
  return nullptr;
}

store::Oid ReadOid(const formats::Json& value, const formats::Place& place) {
  constexpr const char* kExpected =
      "eine Oid wird erwartet, eine positive ganze Zahl als Text wie „7“";
  if (!value.is_string()) place.Fail(kExpected);
  const auto oid = store::ParseOid(value.get_ref<const std::string&>());
  if (!oid) place.Fail(kExpected);
  return *oid;
}

std::int32_t ReadErrorNumber(const formats::Json& value, const formats::Place& place) {
  constexpr const char* kExpected = "eine Fehlernummer wird erwartet, zum Beispiel „0x80041096“";
  if (!value.is_string()) place.Fail(kExpected);
  const std::string text = value.get<std::string>();
  std::uint32_t bits = 0;
  if (!text.starts_with("0x")) place.Fail(kExpected);
  const auto result = std::from_chars(text.data() + 2, text.data() + text.size(), bits, 16);
  const auto number = platform::ErrorNumber(bits);
  if (result.ec != std::errc() || formats::ErrorNumberText(number) != text) place.Fail(kExpected);
  return number;
}

}  // namespace pactora::dataset
