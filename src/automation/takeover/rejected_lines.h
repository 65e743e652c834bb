// The lines of a list that were not entered: a file of their own, ready to be corrected and
// then to be the list of the next run.
#pragma once

#include <string>
#include <vector>

#include "automation/bulk/report.h"
#include "automation/takeover/list.h"

namespace pactora::takeover {

// That file, beside the report.
std::string RejectedFile(const std::string& report);
// The report of a list where none is named: for a file of rejected lines that of the list
// they come from.
std::string UsualReport(const std::string& list);

// Writes the lines as they stood in the list, or removes the file where there are none. What
// stood there and is no line of the list is kept with a "~" behind the name, which is
// returned; empty for none. list_file may be that very file.
std::string WriteRejectedLines(const List& list, const std::vector<bulk::ReportLine>& report,
                               const std::string& file, const std::string& list_file);

}  // namespace pactora::takeover
