#include "automation_host/serve_host.h"

#include <string>

#include "automation_host/Served.h"

namespace pactora::automation_host {
namespace {

using host::Value;

// An object of the host as a value, and the same back.
Value ServeObject(const host::ObjectRef& object) {
  return object ? Serve({}, object) : Value(nullptr);
}
Value ServeValue(const Value& value) {
  return value.GetKind() == host::Kind::Object ? ServeObject(value.AsObject()) : value;
}
Value Unserved(const Value& value) {
  return value.GetKind() == host::Kind::Object ? Value(Behind(value)) : value;
}

// Raises error 5 for an argument that is missing.
const Value& At(const Arguments& args, std::size_t place) {
  if (place >= args.size()) platform::Raise(platform::RuntimeError::InvalidArgument);
  return args[place];
}
std::string Text(const Arguments& args, std::size_t place) { return host::ToText(At(args, place)); }
std::int32_t Long(const Arguments& args, std::size_t place) {
  return host::ToLong(At(args, place));
}

// A member that gives nothing.
template <typename Body>
Member Does(const wchar_t* name, Body body) {
  return {name,
          [body](const Arguments& args) {
            body(args);
            return Value();
          },
          nullptr};
}
template <typename Body>
Member Gives(const wchar_t* name, Body body) {
  return {name, [body](const Arguments& args) { return Value(body(args)); }, nullptr};
}
template <typename Get, typename Put>
Member Has(const wchar_t* name, Get get, Put put) {
  return {name, [get](const Arguments&) { return Value(get()); },
          [put](const Value& value) { put(value); }};
}

// All objects below keep the table, the database or the application that they belong to.
using TableRef = std::shared_ptr<host::HostTable>;
using DbRef = std::shared_ptr<host::HostDb>;
using AppRef = std::shared_ptr<host::HostApp>;

template <typename Owner, typename Entry>
Value ServeEntry(const Owner& owner, Entry& entry) {
  return Serve({Has(
      L"Value", [owner, &entry] { return entry.Value(); },
      [owner, &entry](const Value& value) { entry.SetValue(value); })});
}

template <typename Owner>
Value ServeSettings(const Owner& owner, host::HostSettings& settings) {
  return Serve({
      Gives(L"Exists", [owner, &settings](auto& a) { return settings.Exists(Text(a, 0)); }),
      Gives(L"Item",
            [owner, &settings](auto& a) { return ServeEntry(owner, settings.Item(Text(a, 0))); }),
      Gives(L"Add", [owner, &settings](
                        auto& a) { return ServeEntry(owner, settings.Add(Text(a, 0), At(a, 1))); }),
  });
}

Value ServePersistVar(const DbRef& db, host::HostPersistVar& variable) {
  return Serve({
      Gives(L"Name", [db, &variable](auto&) { return variable.Name(); }),
      Gives(L"ReadOnly", [db, &variable](auto&) { return variable.ReadOnly(); }),
      Has(
          L"Value", [db, &variable] { return variable.Value(); },
          [db, &variable](const Value& value) { variable.SetValue(value); }),
  });
}

Value PersistVarAt(const DbRef& db, const Value& which) {
  host::HostPersistVars& variables = db->Formulas().PersistVars();
  if (which.GetKind() == host::Kind::Text) {
    host::HostPersistVar* variable = variables.Item(which.AsText());
    return variable != nullptr ? ServePersistVar(db, *variable) : Value(nullptr);
  }
  std::int32_t left = host::ToLong(which);
  Value found(nullptr);
  variables.ForEach([&](host::HostPersistVar& variable) {
    if (--left == 0) found = ServePersistVar(db, variable);
    return left > 0;
  });
  return found;
}

Value ServePersistVars(const DbRef& db) {
  const auto variables = [db]() -> host::HostPersistVars& { return db->Formulas().PersistVars(); };
  return Serve({
      Gives(L"Count",
            [variables](auto&) {
              std::int32_t count = 0;
              variables().ForEach([&](auto&) { return ++count > 0; });
              return count;
            }),
      Gives(L"Exists", [variables](auto& a) { return variables().Exists(Text(a, 0)); }),
      Gives(L"Item", [db](auto& a) { return PersistVarAt(db, At(a, 0)); }),
      Gives(L"Add",
            [db, variables](auto& a) {
              return ServePersistVar(db, variables().Add(Text(a, 0), At(a, 1)));
            }),
  });
}

Value ServeFields(const TableRef& table);
Value ServeTable(const TableRef& table);

Value ServeField(const TableRef& table, host::HostField& field) {
  return Serve({
      Gives(L"Name", [table, &field](auto&) { return field.Name(); }),
      Gives(L"Parent", [table](auto&) { return ServeFields(table); }),
      Gives(L"Size", [table, &field](auto&) { return field.Size(); }),
      Has(
          L"Value", [table, &field] { return ServeValue(field.Value()); },
          [table, &field](const Value& value) { field.SetValue(Unserved(value)); }),
  });
}

Value ServeFields(const TableRef& table) {
  return Serve({
      Gives(L"Exists", [table](auto& a) { return table->Fields().Exists(Text(a, 0)); }),
      Gives(L"Parent", [table](auto&) { return ServeTable(table); }),
      Gives(L"Item",
            [table](auto& a) { return ServeField(table, table->Fields().Item(Text(a, 0))); }),
  });
}

// An index that is put back is found behind the object.
class IndexHandle final : public host::Object {
 public:
  explicit IndexHandle(std::shared_ptr<host::HostIndex> index) : index_(std::move(index)) {}
  const std::shared_ptr<host::HostIndex>& Index() const { return index_; }

 private:
  std::shared_ptr<host::HostIndex> index_;
};

Value ServeIndex(const std::shared_ptr<host::HostIndex>& index) {
  if (!index) return nullptr;
  return Serve({Gives(L"Name", [index](auto&) { return index->Name(); }),
                Gives(L"KeyValue", [index](auto&) { return index->KeyValue(); })},
               std::make_shared<IndexHandle>(index));
}

Value ServeIndexes(const TableRef& table) {
  return Serve({
      Does(L"Select", [table](auto& a) { table->Indexes().Select(Text(a, 0), Long(a, 1)); }),
      Does(L"SelectNone", [table](auto& a) { table->Indexes().SelectNone(Long(a, 0)); }),
      Has(
          L"Current", [table] { return ServeIndex(table->Indexes().Current()); },
          [table](const Value& value) {
            const auto handle = std::dynamic_pointer_cast<IndexHandle>(Behind(value));
            if (!handle) platform::Raise(platform::RuntimeError::TypeMismatch);
            table->Indexes().SetCurrent(handle->Index());
          }),
  });
}

Value ServeTable(const TableRef& table) {
  return Serve({
      Gives(L"Name", [table](auto&) { return table->Name(); }),
      Gives(L"Fields", [table](auto&) { return ServeFields(table); }),
      Gives(L"Indexes", [table](auto&) { return ServeIndexes(table); }),
      Gives(L"Settings", [table](auto&) { return ServeSettings(table, table->Settings()); }),
      Gives(L"EOF", [table](auto&) { return table->Eof(); }),
      Gives(L"ParentTable", [table](auto&) { return ServeTable(table->ParentTable()); }),
      Does(L"LinkChildren", [table](auto&) { table->LinkChildren(); }),
      Does(L"MoveFirst", [table](auto& a) { table->MoveFirst(Long(a, 0)); }),
      Does(L"MoveNext", [table](auto& a) { table->MoveNext(Long(a, 0), Long(a, 1)); }),
      Gives(L"SeekKey", [table](auto& a) { return table->SeekKey(At(a, 0), Long(a, 1)); }),
      Gives(L"SeekNear", [table](auto& a) { return table->SeekNear(At(a, 0), Long(a, 1)); }),
      Gives(L"FindOid", [table](auto& a) { return table->FindOid(Text(a, 0), Long(a, 1)); }),
      Does(L"GotoOid", [table](auto& a) { table->GotoOid(Text(a, 0)); }),
      Gives(L"Oid", [table](auto&) { return table->Oid(); }),
      Gives(L"ScopeCount", [table](auto&) { return table->ScopeCount(); }),
      Gives(L"NewRecordOid", [table](auto& a) { return table->NewRecordOid(Long(a, 0)); }),
      Does(L"GotoRec", [table](auto& a) { table->GotoRec(At(a, 0)); }),
      Does(L"BeginEdit", [table](auto&) { table->BeginEdit(); }),
      Does(L"Store", [table](auto& a) { table->Store(Long(a, 0)); }),
      Does(L"StoreNew", [table](auto& a) { table->StoreNew(Long(a, 0)); }),
      Does(L"DeleteRec", [table](auto& a) { table->DeleteRec(Long(a, 0)); }),
      Does(L"FilterOff", [table](auto& a) { table->FilterOff(Long(a, 0), Long(a, 1)); }),
      Does(L"FilterOff2", [table](auto& a) { table->FilterOff2(Long(a, 0), Long(a, 1)); }),
      Has(
          L"CursorFlagA", [table] { return table->CursorFlagA(); },
          [table](const Value& value) { table->SetCursorFlagA(host::ToBoolean(value)); }),
      Has(
          L"CursorFlagB", [table] { return table->CursorFlagB(); },
          [table](const Value& value) { table->SetCursorFlagB(host::ToBoolean(value)); }),
  });
}

Value ServeDbInfo(const DbRef& db) {
  return Serve({
      Gives(L"Name", [db](auto&) { return db->Tables().Database().Name(); }),
      Gives(L"DisplayName",
            [db](auto& a) { return db->Tables().Database().DisplayName(Long(a, 0)); }),
  });
}

Value ServeTables(const DbRef& db) {
  return Serve({
      Gives(L"Database", [db](auto&) { return ServeDbInfo(db); }),
      Gives(L"Item", [db](auto& a) { return ServeTable(db->Tables().Item(Text(a, 0))); }),
  });
}

Value ServeUser(const DbRef& db, host::HostUser& user) {
  return Serve({
      Gives(L"Name", [db, &user](auto&) { return user.Name(); }),
      Gives(L"PublicSettings",
            [db, &user](auto&) { return ServeSettings(db, user.PublicSettings()); }),
      Gives(L"PrivateSettings",
            [db, &user](auto&) { return ServeSettings(db, user.PrivateSettings()); }),
  });
}

Value ServeUsers(const DbRef& db) {
  return Serve({
      Gives(L"Count", [db](auto&) { return db->Users().Count(); }),
      Gives(L"Item", [db](auto& a) { return ServeUser(db, db->Users().Item(Long(a, 0))); }),
      Gives(L"CurrentUser", [db](auto&) { return ServeUser(db, db->Users().CurrentUser()); }),
  });
}

Value ServeFormula(const std::shared_ptr<host::HostFormula>& formula) {
  return Serve({Gives(L"Eval", [formula](auto& a) { return formula->Eval(Long(a, 0)); })});
}

Value ServeFormulas(const DbRef& db) {
  return Serve({
      Gives(L"PersistVars", [db](auto&) { return ServePersistVars(db); }),
      Gives(L"Compile",
            [db](auto& a) { return ServeFormula(db->Formulas().Compile(Text(a, 0), Long(a, 1))); }),
  });
}

Value ServeDb(const DbRef& db) {
  return Serve({
      Gives(L"Tables", [db](auto&) { return ServeTables(db); }),
      Gives(L"Users", [db](auto&) { return ServeUsers(db); }),
      Gives(L"Formulas", [db](auto&) { return ServeFormulas(db); }),
      Gives(L"DbSettings", [db](auto&) { return ServeSettings(db, db->DbSettings()); }),
  });
}

Value ServeSelection(const AppRef& app, host::HostSelection& selection) {
  return Serve({Has(
      L"Current", [app, &selection] { return ServeObject(selection.Current()); },
      [app, &selection](const Value& value) { selection.SetCurrent(Behind(value)); })});
}

Value ServeProcedure(const std::shared_ptr<host::HostProcedure>& procedure) {
  if (!procedure) return nullptr;
  return Serve({Does(L"Run", [procedure](auto& a) {
    host::ValueArray args = At(a, 0).AsArray();
    procedure->Run(args);
  })});
}

Value ServeProjectItem(const std::shared_ptr<host::HostProjectItem>& item) {
  if (!item) return nullptr;
  return Serve({Gives(L"Procedures",
                      [item](auto& a) { return ServeProcedure(item->Procedures(Text(a, 0))); })});
}

Value ServeProject(const std::shared_ptr<host::HostProject>& project) {
  if (!project) return nullptr;
  return Serve({Gives(L"ProjectItems", [project](auto& a) {
    return ServeProjectItem(project->ProjectItems(Text(a, 0)));
  })});
}

Value ServeMacroHost(const AppRef& app) {
  return Serve({Gives(L"Projects", [app](auto& a) {
    return ServeProject(app->MacroHost().Projects(Text(a, 0)));
  })});
}

}  // namespace

Value ServeApp(const AppRef& app) {
  return Serve({
      Gives(L"CurrentDb", [app](auto&) { return ServeDb(app->CurrentDb()); }),
      Has(
          L"ApplicationFlag", [app] { return app->ApplicationFlag(); },
          [app](const Value& value) { app->SetApplicationFlag(host::ToBoolean(value)); }),
      Gives(L"SelectionA", [app](auto&) { return ServeSelection(app, app->SelectionA()); }),
      Gives(L"SelectionB", [app](auto&) { return ServeSelection(app, app->SelectionB()); }),
      Gives(L"SelectionC", [app](auto&) { return ServeSelection(app, app->SelectionC()); }),
      Does(L"ActivateSelectionC", [app](auto& a) { app->ActivateSelectionC(Behind(At(a, 0))); }),
      Gives(L"MacroHost", [app](auto&) { return ServeMacroHost(app); }),
  });
}

}  // namespace pactora::automation_host
