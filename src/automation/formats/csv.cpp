#include "automation/formats/csv.h"

#include <fmt/format.h>

#include "automation/formats/errors.h"
#include "platform/Text.h"

namespace pactora::formats {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

class Reader {
 public:
  Reader(std::string_view text, char separator) : text_(text), separator_(separator) {}

  std::vector<CsvRow> Read() {
    while (at_ < text_.size()) ReadRow();
    return std::move(rows_);
  }

 private:
  void ReadRow() {
    CsvRow row;
    row.line = line_;
    fault_.clear();
    const std::size_t begin = at_;
    do {
      row.cells.push_back(ReadCell());
    } while (Take(separator_));
    std::size_t end = at_;
    if (end > begin && text_[end - 1] == '\r') --end;
    row.text = std::string(text_.substr(begin, end - begin));
    row.fault = fault_;
    if (Take('\n')) ++line_;
    if (!platform::IsValidUtf8(row.text)) {
      Raise(DoorError::BadInput,
            fmt::format("Zeile {}: kein UTF-8; speichern Sie die Datei als „CSV UTF-8“", row.line));
    }
    if (!platform::Trim(row.text).empty()) rows_.push_back(std::move(row));
  }

  std::string ReadCell() {
    if (at_ < text_.size() && text_[at_] == '"') return ReadQuoted();
    return std::string(platform::Trim(ToSeparator()));
  }

  std::string_view ToSeparator() {
    const std::size_t begin = at_;
    while (at_ < text_.size() && text_[at_] != separator_ && text_[at_] != '\n') ++at_;
    return text_.substr(begin, at_ - begin);
  }

  // Between a closing quote and the separator only blanks may stand.
  void SkipToSeparator() {
    const std::size_t line_begin = text_.rfind('\n', at_) + 1;  // 0 in the first line
    const std::string_view rest = ToSeparator();
    if (platform::Trim(rest).empty() || !fault_.empty()) return;
    const auto place =
        static_cast<std::size_t>(rest.data() - text_.data()) + rest.find_first_not_of(" \t");
    fault_ = fmt::format(
        "Zeile {}, Spalte {}: hinter dem schließenden Anführungszeichen steht noch Text", line_,
        platform::Length(text_.substr(line_begin, place - line_begin)) + 1);
  }

  std::string ReadQuoted() {
    const std::size_t first_line = line_;
    std::string cell;
    for (++at_; at_ < text_.size(); ++at_) {
      if (text_[at_] == '"') {
        ++at_;
        if (at_ >= text_.size() || text_[at_] != '"') {
          SkipToSeparator();
          return cell;
        }
      }
      if (text_[at_] == '\n') ++line_;
      cell += text_[at_];
    }
    Raise(DoorError::BadInput,
          fmt::format("Zeile {}: das Anführungszeichen ist nicht geschlossen", first_line));
  }

  bool Take(char wanted) {
    if (at_ >= text_.size() || text_[at_] != wanted) return false;
    ++at_;
    return true;
  }

  std::string_view text_;
  const char separator_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
  std::string fault_;  // of the row that is read
  std::vector<CsvRow> rows_;
};

std::string_view WithoutMark(std::string_view text) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  return text;
}

}  // namespace

std::vector<CsvRow> ReadCsv(std::string_view text, char separator) {
  return Reader(WithoutMark(text), separator).Read();
}

std::string CsvForm::Mark() const { return std::string(marked ? kByteOrderMark : ""); }

CsvForm FormOf(std::string_view text) {
  CsvForm form;
  form.marked = text.starts_with(kByteOrderMark);
  const std::string_view header = text.substr(0, text.find('\n'));
  if (header.ends_with('\r')) form.line_break = "\r\n";
  const bool commas_only =
      header.find(';') == std::string_view::npos && header.find(',') != std::string_view::npos;
  if (commas_only) form.separator = ',';
  return form;
}

std::string CsvLine(const std::vector<std::string>& cells, char separator) {
  std::string line;
  for (const std::string& cell : cells) {
    if (&cell != &cells.front()) line += separator;
    const bool plain = cell.find_first_of("\"\r\n") == std::string::npos &&
                       cell.find(separator) == std::string::npos && platform::Trim(cell) == cell;
    if (plain) {
      line += cell;
      continue;
    }
    line += '"';
    for (const char c : cell) {
      if (c == '"') line += '"';
      line += c;
    }
    line += '"';
  }
  return line;
}

}  // namespace pactora::formats
