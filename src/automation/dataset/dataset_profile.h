// What a dataset says about a database besides its rows.
#pragma once

#include <string>

#include "automation/formats/JsonWriter.h"
#include "automation/formats/json.h"
#include "store/Profile.h"

namespace pactora::dataset {

namespace key {
inline constexpr const char* kDatabase = "database";
inline constexpr const char* kUsers = "users";
inline constexpr const char* kCurrentUser = "currentUser";
inline constexpr const char* kDbSettings = "dbSettings";
inline constexpr const char* kTableSettings = "tableSettings";
inline constexpr const char* kPersistVars = "persistVars";
inline constexpr const char* kWorkflowAddOn = "workflowAddOn";
inline constexpr const char* kMacros = "macros";
inline constexpr const char* kTables = "tables";
inline constexpr const char* kOid = "@oid";
}  // namespace key

// Whether a dataset may have that key besides "tables".
bool IsProfileKey(const std::string& key);

// The profile that these members of a dataset describe; what they leave out is as in
// store::DefaultProfile(default_name). Requires: all keys pass IsProfileKey.
// Raises DoorError::BadInput.
store::Profile ReadProfile(const formats::Json& members, const std::string& source,
                           const std::string& default_name);

// Writes the profile's members, in fixed order, into the object that is open.
void WriteProfile(formats::JsonWriter& out, const store::Profile& profile, bool workflow_add_on);

}  // namespace pactora::dataset
