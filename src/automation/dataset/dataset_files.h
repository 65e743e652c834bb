// Whole databases from dataset files and into them.
#pragma once

#include <functional>
#include <string>

#include "automation/formats/TextSource.h"
#include "automation/workspace/database.h"
#include "store/RecordStore.h"

namespace pactora::dataset {

// Reads the dataset into a new database, or into one that is there and empty. pause
// is told how many of the rows are done and may raise to stop; whatever is raised,
// nothing is written.
// Raises DoorError::BadInput where the database has rows or lacks tables that the
// dataset has.
using Pause = std::function<void(std::size_t done, std::size_t all)>;
void ImportDatabase(const std::string& database, const formats::TextSource& source,
                    workspace::Access access, const Pause& pause);

// Writes the database's content as a dataset of one moment; others may go on writing
// meanwhile. file is written whole or not at all; "-" is standard output. Raises
// DoorError::BadInput for a file that is the database itself, NotCarriedOut for a
// database with values or rows that a dataset can't hold.
void ExportDatabase(const std::string& database, const std::string& file, const Pause& pause);

}  // namespace pactora::dataset
