// The operations of the host layer by name, as a probe gets them.
#pragma once

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>

namespace pactora::embedded {

// Operations of the lesser objects carry the object's name.
inline constexpr std::array<std::string_view, 61> kOperations = {
    "ActivateSelectionC",
    "ApplicationFlag",
    "BeginEdit",
    "Compile",
    "Current",
    "CurrentDb",
    "CursorFlagA",
    "CursorFlagB",
    "Database.DisplayName",
    "Database.Name",
    "DeleteRec",
    "EOF",
    "Eval",
    "Fields.Exists",
    "Fields.Item",
    "FilterOff",
    "FilterOff2",
    "FindOid",
    "GotoOid",
    "GotoRec",
    "KeyValue",
    "LinkChildren",
    "MacroHost",
    "MoveFirst",
    "MoveNext",
    "NewRecordOid",
    "Oid",
    "ParentTable",
    "PersistVars.Add",
    "PersistVars.Exists",
    "PersistVars.ForEach",
    "PersistVars.Item",
    "Procedures",
    "ProjectItems",
    "Projects",
    "Run",
    "ScopeCount",
    "SeekKey",
    "SeekNear",
    "Select",
    "SelectNone",
    "Selection.Current",
    "Selection.SetCurrent",
    "SetApplicationFlag",
    "SetCurrent",
    "SetCursorFlagA",
    "SetCursorFlagB",
    "SetValue",
    "Setting.SetValue",
    "Setting.Value",
    "Settings",
    "Settings.Add",
    "Settings.Exists",
    "Settings.Item",
    "Store",
    "StoreNew",
    "Tables.Item",
    "Users.Count",
    "Users.CurrentUser",
    "Users.Item",
    "Value",
};

// One of these names; a misspelt one does not compile.
class OperationName {
 public:
  consteval OperationName(const char* name) : name_(name) {
    if (std::find(kOperations.begin(), kOperations.end(), name_) == kOperations.end())
      throw std::logic_error("no operation of the host layer");
  }
  constexpr operator std::string_view() const { return name_; }

 private:
  std::string_view name_;
};

}  // namespace pactora::embedded
