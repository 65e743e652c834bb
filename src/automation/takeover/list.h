// A takeover list: contracts to be entered in bulk, one a line.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/formats/csv.h"
#include "platform/Date.h"

namespace pactora::takeover {

// One line of the list. What the user left empty has no value.
struct Line {
  std::size_t line = 0;  // in the file, from 1
  std::string values;    // in a fixed order and spelling, also where the file has another
  std::string key;       // the caller's own, or the values
  bool unclear = false;  // it can't be said which value belongs to which column
  std::string text;      // the line as it stands in the file
  std::string refusal;   // why its values can't be read, naming the column; or empty
  std::string address;   // Oid or name
  std::string type;      // Bezeichnung of the contract type
  platform::Date begin;
  std::optional<platform::Date> last_invoiced;  // start of the last invoiced period
  std::string number;                           // empty: automatic
  std::optional<platform::Date> closed_on;
  std::string responsible;
  std::optional<double> discount;  // percent
  std::optional<bool> discount_first_term_only;
  std::optional<bool> no_booking;
  std::string memo;
};

struct List {
  formats::CsvForm form;
  std::string header;  // as it stands in the file
  std::vector<Line> lines;
};

// Reads a list. Faulty values refuse their line; raises DoorError::BadInput for a
// text that is no such list: no header, a column that is unknown, missing or there
// twice, more cells than columns. name is that of the file, for messages.
List ReadList(std::string_view text, const std::string& name);

// The same from a file, or from standard input for "-".
List ReadListFile(const std::string& path);

// The names of all columns, in one line; required ones first.
std::string ColumnNames();

// A list to be filled in: all columns, and a line that shows what they hold. Spreadsheet
// programs open it as it is.
std::string Template();

// A list of some of its lines, written as the list is.
std::string TextOf(const List& list, const std::vector<const Line*>& lines);

}  // namespace pactora::takeover
