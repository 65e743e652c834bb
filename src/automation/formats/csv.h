// Tables as text, one row a line, as spreadsheet programs write them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pactora::formats {

inline constexpr char kSeparator = ';';  // of the files that Pactora writes

struct CsvRow {
  std::size_t line = 0;  // of the text, where the row begins, from 1
  std::string text;      // as it stands there, without the line break
  std::vector<std::string> cells;
  std::string fault;  // text behind a closing quote, naming line and column; or empty
};

// Splits the text into rows; empty lines are left out. A cell in double quotes may
// hold separators, line breaks and doubled quotes. A byte order mark is
// skipped. The cells of a row with a fault must not be used. Raises
// DoorError::BadInput, naming the line, for a quote that is not closed and for text
// that is not UTF-8.
std::vector<CsvRow> ReadCsv(std::string_view text, char separator);

// How a text of rows is written.
struct CsvForm {
  bool marked = false;  // with a byte order mark
  char separator = kSeparator;
  std::string line_break = "\n";

  // The mark or nothing.
  std::string Mark() const;
};

// As the header line shows it; the separator is ";" unless only "," occurs in it.
CsvForm FormOf(std::string_view text);

// The cells as one line; a cell is quoted where it needs to be.
std::string CsvLine(const std::vector<std::string>& cells, char separator);

}  // namespace pactora::formats
