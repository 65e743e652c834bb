// Whole databases from dataset files and into them.
#pragma once

#include <functional>
#include <string>

#include "automation/formats/TextSource.h"
#include "automation/workspace/database.h"
#include "store/RecordStore.h"

namespace pactora::dataset {

// Called during the work with the number of rows that are done; may raise to stop.
using Progress = std::function<void(std::size_t done, std::size_t all)>;

enum class Content { None, Sample };

// Makes a database, empty or with the sample company. After an error there is none. Raises what
// workspace::MakeDatabase raises.
void InitDatabase(const std::string& database, Content content, workspace::Access access,
                  const Progress& progress);

// Reads the dataset into a new database, or into an existing empty one. After an
// error nothing is written. Raises DoorError::BadInput where the database has rows or
// lacks tables that the dataset has.
void ImportDatabase(const std::string& database, const formats::TextSource& source,
                    workspace::Access access, const Progress& progress);

// Writes the database's content of one moment as a dataset; other users may write
// meanwhile. file is written whole or not at all; "-" is standard output. Raises
// DoorError::BadInput for a file that is the database itself, NotCarriedOut for a
// database with values or rows that a dataset can't hold.
void ExportDatabase(const std::string& database, const std::string& file, const Progress& progress);

// What the database knows besides rows is sound where it can be exported and imported; found
// gets the fault.
void CheckProfile(store::RecordStore& store,
                  const std::function<void(const std::string& fault)>& found);

}  // namespace pactora::dataset
